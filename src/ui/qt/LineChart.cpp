#include "ui/qt/LineChart.h"

#include <QChart>
#include <QLineSeries>
#include <QPainter>
#include <QToolTip>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

#include "app/numbers.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

namespace {

const QColor kLine(0x2F, 0x7D, 0x8C);
const QColor kText(0x22, 0x2B, 0x2D);
const QColor kGridLines(0xDD, 0xE3, 0xE3);

constexpr int kLabelRoom = 26;          // pixels below the plot, where the labels stand
constexpr int kMarkerSize = 6;          // pixels
constexpr double kLeastMarkerRoom = 5;  // pixels between points below which markers are left out
constexpr double kGap = 6;              // pixels between neighbouring labels

// Gives out room along a line of text; what would overlap is refused.
class TextRoom {
  public:
    bool Take(double centre, double width) {
        const double from = centre - width / 2 - kGap / 2;
        const double to = centre + width / 2 + kGap / 2;
        const bool free = std::none_of(taken_.begin(), taken_.end(), [&](const auto& other) {
            return from < other.second && other.first < to;
        });
        if (free) taken_.emplace_back(from, to);
        return free;
    }

  private:
    std::vector<std::pair<double, double>> taken_;
};

}  // namespace

LineChart::LineChart(QWidget* parent)
    : QChartView(parent),
      line_(new QLineSeries),
      labelAxis_(new QValueAxis),
      valueAxis_(new QValueAxis) {
    QChart& picture = *chart();
    picture.legend()->hide();
    picture.addSeries(line_);
    picture.addAxis(labelAxis_, Qt::AlignBottom);
    picture.addAxis(valueAxis_, Qt::AlignLeft);
    line_->attachAxis(labelAxis_);
    line_->attachAxis(valueAxis_);
    line_->setPen(QPen(kLine, 2));
    line_->setMarkerSize(kMarkerSize);
    labelAxis_->setLabelsVisible(false);
    labelAxis_->setGridLineVisible(false);
    valueAxis_->setGridLinePen(QPen(kGridLines, 1));
    valueAxis_->setLabelsColor(kText);
    picture.setTitleBrush(kText);
    picture.setMargins({10, 10, 10, 10 + kLabelRoom});
    setRenderHint(QPainter::Antialiasing);
    connect(line_, &QLineSeries::hovered, this, &LineChart::ShowTip);
    connect(&picture, &QChart::plotAreaChanged, this, &LineChart::FitMarkers);
}

void LineChart::Show(const LineChartData& data) {
    data_ = data;
    QList<QPointF> points;
    for (std::size_t point = 0; point < data.values.size(); ++point) {
        points.append({static_cast<double>(point), data.values[point]});
    }
    line_->replace(points);
    line_->setName(Qs(data.series));
    labelAxis_->setRange(-0.5, std::max<double>(points.size(), 1) - 0.5);
    valueAxis_->setRange(data.min, data.max);
    valueAxis_->setTickCount(data.division + 1);
    const double step = (data.max - data.min) / data.division;
    valueAxis_->setLabelFormat(step == std::floor(step) ? QStringLiteral("%d")
                                                        : QStringLiteral("%.1f"));
    chart()->setTitle(Qs(data.title));
    setAccessibleName(Qs(data.title));
    FitMarkers();
    viewport()->update();
}

QPointF LineChart::PlaceOf(std::size_t point) const {
    return chart()->mapToPosition({static_cast<double>(point), data_.values[point]}, line_);
}

void LineChart::FitMarkers() {
    const double count = std::max<double>(data_.values.size(), 1);
    line_->setPointsVisible(chart()->plotArea().width() / count >= kLeastMarkerRoom);
}

void LineChart::drawForeground(QPainter* painter, const QRectF&) {
    painter->setFont(font());
    painter->setPen(kText);
    DrawLabels(*painter);
    DrawValues(*painter);
}

// A label that is no number marks its point, so it goes before the running ones.
void LineChart::DrawLabels(QPainter& painter) const {
    const QFontMetricsF metrics = painter.fontMetrics();
    const double baseline = chart()->plotArea().bottom() + kGap + metrics.ascent();
    TextRoom room;
    for (const bool numbers : {false, true}) {
        for (std::size_t point = 0; point < std::min(data_.labels.size(), data_.values.size());
             ++point) {
            if (IsNumeric(data_.labels[point]) != numbers) continue;
            const QString label = Qs(data_.labels[point]);
            const double width = metrics.horizontalAdvance(label);
            const double centre = PlaceOf(point).x();
            if (room.Take(centre, width))
                painter.drawText(QPointF(centre - width / 2, baseline), label);
        }
    }
}

void LineChart::DrawValues(QPainter& painter) const {
    const QFontMetricsF metrics = painter.fontMetrics();
    TextRoom room;
    for (std::size_t point = 0; point < data_.values.size(); ++point) {
        const double value = data_.values[point];
        if (value < data_.min || value > data_.max) continue;
        const QString text = Qs(NumberText(value));
        const double width = metrics.horizontalAdvance(text);
        const QPointF place = PlaceOf(point);
        if (!room.Take(place.x(), width)) continue;
        painter.drawText(place - QPointF(width / 2, kMarkerSize), text);
    }
}

void LineChart::ShowTip(const QPointF& place, bool entered) {
    const double nearest = std::round(place.x());
    if (!entered || nearest < 0 || nearest >= static_cast<double>(data_.values.size())) return;
    const auto point = static_cast<std::size_t>(nearest);
    const std::string label = point < data_.labels.size() ? data_.labels[point] : "";
    QToolTip::showText(QCursor::pos(), Qs(label + ": " + NumberText(data_.values[point])), this);
}

}  // namespace ssq
