#include "ui/qt/LineChart.h"

#include <QChart>
#include <QLineSeries>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

namespace {

const QColor kLine(0x2F, 0x7D, 0x8C);
const QColor kText(0x22, 0x2B, 0x2D);
const QColor kTextGround(255, 255, 255, 190);
const QColor kGridLines(0xDD, 0xE3, 0xE3);

constexpr double kTitlePlace = 0.45;  // of the way from the upper edge to the plot

// All in pixels.
const QMarginsF kPlotMargins(52, 58, 24, 42);  // room for the scale, the title and the labels
constexpr double kMarkerRadius = 3.5;
constexpr double kLeastMarkerRoom = 8;  // between points; closer ones go without markers
constexpr double kGap = 6;              // between neighbouring texts

// Draws texts in order of their weight; one that would overlap an earlier one is left out.
class TextRoom {
  public:
    explicit TextRoom(QPainter& painter) : painter_(painter) {}

    // On a light ground, so that the text can be read where the line passes behind it.
    void Draw(const QPointF& centre, const QString& text) {
        QRectF box = painter_.fontMetrics().boundingRect(text).toRectF();
        box.moveCenter(centre);
        const QRectF wanted = box.adjusted(-kGap / 2, 0, kGap / 2, 0);
        if (std::any_of(taken_.begin(), taken_.end(),
                        [&](const QRectF& other) { return other.intersects(wanted); })) {
            return;
        }
        taken_.push_back(wanted);
        painter_.fillRect(box, kTextGround);
        painter_.drawText(box, Qt::AlignCenter | Qt::TextDontClip, text);
    }

  private:
    QPainter& painter_;
    std::vector<QRectF> taken_;
};

void DrawMarker(QPainter& painter, const QPointF& centre) {
    QPainterPath circle;
    circle.addEllipse(centre, kMarkerRadius, kMarkerRadius);
    painter.fillPath(circle, kLine);
}

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
    labelAxis_->setLabelsVisible(false);
    labelAxis_->setGridLineVisible(false);
    valueAxis_->setGridLinePen(QPen(kGridLines, 1));
    valueAxis_->setLabelsVisible(false);
    // The chart's own background keeps an old size while the view is hidden.
    picture.setBackgroundVisible(false);
    setBackgroundBrush(Qt::white);
    setRenderHint(QPainter::Antialiasing);
    connect(line_, &QLineSeries::hovered, this, &LineChart::ShowTip);
}

void LineChart::Show(const LineChartData& data) {
    data_ = data;
    QList<QPointF> points;
    for (std::size_t point = 0; point < data.values.size(); ++point) {
        points.append({static_cast<double>(point), data.values[point]});
    }
    line_->replace(points);
    line_->setName(Qs(data.series));
    labelAxis_->setRange(-0.5, std::max(static_cast<double>(points.size()), 1.0) - 0.5);
    valueAxis_->setRange(data.min, data.max);
    valueAxis_->setTickCount(data.division + 1);
    setAccessibleName(Qs(data.title));
    FitLine();
    viewport()->update();
}

QPointF LineChart::PlaceOf(std::size_t point) const {
    return chart()->mapToPosition({static_cast<double>(point), data_.values[point]}, line_);
}

void LineChart::resizeEvent(QResizeEvent* event) {
    QChartView::resizeEvent(event);
    chart()->setPlotArea(QRectF(QPointF(), viewport()->size()).marginsRemoved(kPlotMargins));
    FitLine();
}

bool LineChart::IsCrowded() const {
    return chart()->plotArea().width() <
           kLeastMarkerRoom * static_cast<double>(data_.values.size());
}

void LineChart::FitLine() {
    line_->setPen(QPen(kLine, IsCrowded() ? 1 : 2));
}

void LineChart::drawForeground(QPainter* painter, const QRectF&) {
    if (chart()->plotArea().isEmpty()) return;
    painter->setFont(font());
    painter->setPen(kText);
    const QRectF plot = chart()->plotArea();
    TextRoom(*painter).Draw({plot.center().x(), plot.top() * kTitlePlace}, Qs(data_.title));
    DrawScale(*painter);
    DrawLabels(*painter);
    DrawPoints(*painter);
}

void LineChart::DrawScale(QPainter& painter) const {
    const QFontMetricsF metrics = painter.fontMetrics();
    const QRectF plot = chart()->plotArea();
    TextRoom room(painter);
    for (int tick = 0; tick <= data_.division; ++tick) {
        const double part = static_cast<double>(tick) / data_.division;
        const double y = plot.bottom() - part * plot.height();
        const QString text = Qs(NumberText(data_.min + part * (data_.max - data_.min)));
        room.Draw({plot.left() - kGap - metrics.horizontalAdvance(text) / 2, y}, text);
    }
}

// A label that is no number marks its point, so it goes before the running ones.
void LineChart::DrawLabels(QPainter& painter) const {
    const double y =
        chart()->plotArea().bottom() + kGap + QFontMetricsF(painter.fontMetrics()).height() / 2;
    const std::size_t count = std::min(data_.labels.size(), data_.values.size());
    TextRoom room(painter);
    for (const bool numbers : {false, true}) {
        for (std::size_t point = 0; point < count; ++point) {
            if (IsNumeric(data_.labels[point]) != numbers) continue;
            room.Draw({PlaceOf(point).x(), y}, Qs(data_.labels[point]));
        }
    }
}

// The peaks stand out most, so they are written first.
void LineChart::DrawPoints(QPainter& painter) const {
    const double rise = 2 * kMarkerRadius + QFontMetricsF(painter.fontMetrics()).height() / 2;
    std::vector<std::size_t> order;
    for (std::size_t point = 0; point < data_.values.size(); ++point) {
        if (data_.values[point] < data_.min || data_.values[point] > data_.max) continue;
        order.push_back(point);
        if (!IsCrowded()) DrawMarker(painter, PlaceOf(point));
    }
    std::stable_sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
        return data_.values[left] > data_.values[right];
    });
    TextRoom room(painter);
    for (const std::size_t point : order) {
        room.Draw(PlaceOf(point) - QPointF(0, rise), Qs(NumberText(data_.values[point])));
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
