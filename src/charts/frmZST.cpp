#include "charts/frmZST.h"

#include <QBoxLayout>
#include <QComboBox>

#include "charts/MainTrendChart.h"
#include "draws/NumberSource.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

frmZST::frmZST(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent, {{"frmZST", " 走势图分析", 1280, 820}}) {
    cboZtype_ = AddCombo(inputs(), "cboZtype", QStringLiteral("走势图类型:"));
    for (const auto type : kTrendTypes) cboZtype_->addItem(Qs(std::string(type)));
    AddRunButton({"Command1", "分析"}, [this](Run&) { return Analyse(); });
    AddButton(inputs(), "Command2", QStringLiteral("导出"),
              [this] { SaveGridAsExcel(this->context(), results()); });

    GridView* vs1 = AddResults("Frame2", "走势图结果");
    vs1->SetCrosshair();
    vs1->onPress = [this, vs1](int row, int col, Qt::MouseButton button) {
        if (button != Qt::LeftButton) return;
        vs1->Edit([&](ResultGrid& grid) { TogglePick(grid, pickRowList_, row, col); });
        NameNumbers(PickSources(vs1->grid(), pickRowList_));
    };
    const auto hide = [vs1](bool hidden) {
        vs1->Edit([hidden](ResultGrid& grid) { HideNumbers(grid, hidden); });
    };
    SetPopup(context, *vs1, "Menu_hide_vs_zst", "表格",
             {{"m_hide_zst", "隐藏走势图", [hide] { hide(true); }},
              {"m_disp_zst", "显示走势图", [hide] { hide(false); }}});
}

bool frmZST::Analyse() {
    auto chart = BuildMainTrendChart(session(), range(), cboZtype_->currentIndex());
    if (!chart) return false;
    pickRowList_ = std::move(chart->pickRowList);
    if (!Show(std::move(chart->report))) return false;
    NameNumbers({});
    return true;
}

}  // namespace ssq
