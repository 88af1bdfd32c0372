#include "stats/frmLrHMfx.h"

#include <QVBoxLayout>

#include "draws/Draw.h"
#include "stats/HeatRanking.h"
#include "ui/qt/LineChart.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

frmLrHMfx::frmLrHMfx(const PanelContext& context, const ResultGrid& grid, const std::string& number,
                     QWidget* parent)
    : Panel(context, parent,
            {"frmLrHMfx", "号码排名情况[说明：1-33为名次,最下面一排为期数]", 1100, 680}) {
    HeatCourse course = HeatCourseOf(grid, number);
    setWindowTitle(Qs(course.range + ",号码【" + number + "】的") + windowTitle());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 9, 16);  // 10, 10, 140 and 240 twips
    AddLineChart(context, column, "HMchart")
        ->Show({.title = {},
                .labels = std::move(course.labels),
                .values = std::move(course.positions),
                .min = 1,
                .max = kReds,
                .division = kReds - 1,
                .series = "1"});
}

}  // namespace ssq
