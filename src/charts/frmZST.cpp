#include "charts/frmZST.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGroupBox>
#include <QScrollBar>

#include "charts/MainTrendChart.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/form.h"

namespace ssq {

frmZST::frmZST(const PanelContext& context, QWidget* parent) : QWidget(parent), context_(context) {
    auto* column = SetUpPanel(*this, "frmZST", QStringLiteral(" 走势图分析"), 1280, 820);
    auto* inputs = AddRow(AddGroup(column, "Frame1", QStringLiteral("分析条件")));
    cboSdate_ = AddIssueCombo(inputs, "cboSdate", QStringLiteral("开始期号:"));
    cboEdate_ = AddIssueCombo(inputs, "cboEdate", QStringLiteral("结束期号:"));
    cboZtype_ = AddCombo(inputs, "cboZtype", QStringLiteral("走势图类型:"));
    for (const auto type : kTrendTypes) cboZtype_->addItem(Qs(std::string(type)));
    AddButton(inputs, "Command1", QStringLiteral("分析"), [this] { Analyse(); });
    AddButton(inputs, "Command2", QStringLiteral("导出"), [this] { Export(); });

    results_ = AddGroup(column, "Frame2", QStringLiteral("走势图结果"));
    vs1_ = AddGrid(results_, "vs1");
    vs1_->onPress = [this](int row, int col, Qt::MouseButton button) {
        if (button != Qt::LeftButton) return;
        vs1_->Edit([&](ResultGrid& grid) { TogglePick(grid, pickRowList_, row, col); });
    };
    FillIssueCombos(context_, *cboSdate_, *cboEdate_, true);
}

void frmZST::Analyse() {
    MainTrendChart chart;
    if (!BuildMainTrendChart(context_.session, RangeOf(*cboSdate_, *cboEdate_),
                             cboZtype_->currentIndex(), chart)) {
        return;
    }
    pickRowList_ = std::move(chart.pickRowList);
    results_->setTitle(Qs(chart.caption));
    vs1_->SetGrid(std::move(chart.grid));
    // The newest draws and the pick rows stand at the bottom.
    vs1_->verticalScrollBar()->setValue(vs1_->verticalScrollBar()->maximum());
}

void frmZST::Export() {
    SaveGridAsExcel(context_, *vs1_);
}

}  // namespace ssq
