#include "acquire/frmSale.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QPushButton>

#include "acquire/Sales.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr int kRangeOpens = 20;  // entries below the newest issue

}  // namespace

frmSale::frmSale(const PanelContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
    auto* column = SetUpPanel(*this, "frmSale", QStringLiteral(" 在线销售分析"), 1200, 640);
    auto* query = AddRow(AddGroup(column, "Frame2", {}));
    start_ = AddIssueCombo(query, "cboSdate", QStringLiteral("开始期号:"));
    end_ = AddIssueCombo(query, "cboEdate", QStringLiteral("结束期号:"));
    AddButton(query, "Command1", QStringLiteral("查询"), [this] { Query(); });
    update_ = AddButton(query, "Command2", QStringLiteral("更新销售数据"), [this] { Update(); });
    auto* group = AddGroup(column, "Frame1",
                           QStringLiteral("数据来自销售网站的实时销量，号码越靠前购买的人越多"));
    vs1_ = AddGrid(group, "vs1");
    FillIssueCombos(context_, *start_, *end_, false);
    start_->TakeEntry(kRangeOpens);
}

void frmSale::Query() {
    ResultGrid grid;
    SalesTable(context_.session, RangeOf(*start_, *end_), grid);
    vs1_->SetGrid(std::move(grid));
}

void frmSale::Update() {
    update_->setText(QStringLiteral("更新中.."));
    update_->setEnabled(false);
    update_->repaint();  // the fetch blocks the window
    UpdateSales(context_.session);
    if (context_.session.host.stopping()) return;
    Query();
    update_->setText(QStringLiteral("更新销售数据"));
    update_->setEnabled(true);
}

}  // namespace ssq
