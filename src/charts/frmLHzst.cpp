#include "charts/frmLHzst.h"

#include <QBoxLayout>

#include "charts/ConsecutiveChart.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"

namespace ssq {

frmLHzst::frmLHzst(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent, {{"frmLHzst", " 连号走势图", 1340, 760}}) {
    AddRunButton({"Command1", "分析"},
                 [this](Run&) { return Show(BuildConsecutiveChart(session(), range())); });
    // Stands there for the day this chart can be exported.
    AddButton(inputs(), "Command2", QStringLiteral("导出"), [] {});
    AddResults("Frame2", "连号走势图结果")->SetCrosshair();
}

}  // namespace ssq
