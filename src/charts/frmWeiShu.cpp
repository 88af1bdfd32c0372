#include "charts/frmWeiShu.h"

#include "charts/TailChart.h"
#include "ui/qt/GridView.h"

namespace ssq {

frmWeiShu::frmWeiShu(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent, {{"frmWeiShu", " 尾数走势图", 1340, 760}, kStartSixtyDraws}) {
    AddRunButton({"Command1", "分析"},
                 [this](Run&) { return Show(BuildTailChart(session(), range())); });
    AddResults("Frame2", "尾数走势分析 ")->SetCrosshair();
}

}  // namespace ssq
