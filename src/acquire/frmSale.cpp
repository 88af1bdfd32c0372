#include "acquire/frmSale.h"

#include <QPushButton>

#include "acquire/Sales.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/GridView.h"

namespace ssq {

namespace {

constexpr int kRangeOpens = 20;  // entries below the newest issue

}  // namespace

frmSale::frmSale(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {{"frmSale", " 在线销售分析", 1200, 640}, kRangeOpens, "Frame2", ""}) {
    AddRunButton({"Command1", "查询"}, [this](Run&) { return Query(); });
    update_ = AddRunButton({.name = "Command2",
                            .caption = "更新销售数据",
                            .isDisabledInRun = true,
                            .busyCaption = "更新中.."},
                           [this](Run&) { return Update(); });
    AddResults("Frame1", "数据来自销售网站的实时销量，号码越靠前购买的人越多");
}

bool frmSale::Query() {
    results().SetGrid({});
    return Show(BuildSalesTable(session(), range()));
}

bool frmSale::Update() {
    update_->repaint();  // the fetch blocks the window
    UpdateSales(session());
    return !session().host.stopping() && Query();
}

}  // namespace ssq
