#include "charts/frmWeizhi1107568.h"

#include <QBoxLayout>

#include "charts/NumberSegments.h"
#include "charts/frmQDDZ.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"

namespace ssq {

frmWeizhi1107568::frmWeizhi1107568(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent, {{"frmWeizhi1107568", " 号码段走势图", 1340, 760}}) {
    AddRunButton({"Command1", "分析"},
                 [this](Run&) { return Show(BuildSegmentChart(session(), range())); });
    AddButton(inputs(), "Command2", QStringLiteral("区段对照表"), [this] { ShowSegments(); });
    AddResults("Frame2",
               "走势图结果 注：本功能是将33选6所有组合排列,共1107568注号码分成16个区。"
               "然后再分析每注开奖号码出现在哪个区段,用于定龙头非常稳定")
        ->SetCrosshair();
}

void frmWeizhi1107568::ShowSegments() {
    // A window of its own, which outlives this panel.
    auto* segments = parentWidget()->findChild<frmQDDZ*>();
    if (!segments || segments->isClosed()) segments = new frmQDDZ(context(), parentWidget());
    segments->ShowBeside(*this);
}

}  // namespace ssq
