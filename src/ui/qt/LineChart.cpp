#include "ui/qt/LineChart.h"

#include <QChart>
#include <QKeyEvent>
#include <QLineSeries>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QToolTip>
#include <QValueAxis>
#include <QWheelEvent>
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
constexpr double kLeastRoom = 12;  // of a point along the axis
constexpr double kPointedRadius = 6;
constexpr double kGap = 6;  // between neighbouring texts

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

void DrawMarker(QPainter& painter, const QPointF& centre, double radius) {
    QPainterPath circle;
    circle.addEllipse(centre, radius, radius);
    painter.fillPath(circle, kLine);
}

}  // namespace

LineChart::LineChart(QWidget* parent)
    : QChartView(parent),
      line_(new QLineSeries),
      labelAxis_(new QValueAxis),
      valueAxis_(new QValueAxis),
      bar_(new QScrollBar(Qt::Horizontal, this)) {
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
    line_->setPen(QPen(kLine, 2));
    viewport()->setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(NoFrame);
    connect(bar_, &QScrollBar::valueChanged, this, &LineChart::ShowPart);
    bar_->hide();
}

void LineChart::Show(const LineChartData& data) {
    data_ = data;
    QList<QPointF> points;
    for (std::size_t point = 0; point < data.values.size(); ++point) {
        points.append({static_cast<double>(point), data.values[point]});
    }
    line_->replace(points);
    line_->setName(Qs(data.series));
    valueAxis_->setRange(data.min, data.max);
    valueAxis_->setTickCount(data.division + 1);
    setAccessibleName(Qs(data.title));
    pointed_.reset();
    Fit();
    bar_->setValue(bar_->maximum());
    ShowPart();
}

QPointF LineChart::PlaceOf(std::size_t point) const {
    return chart()->mapToPosition({static_cast<double>(point), data_.values[point]}, line_);
}

void LineChart::resizeEvent(QResizeEvent* event) {
    const bool atEnd = bar_->value() == bar_->maximum();
    QChartView::resizeEvent(event);
    Fit();
    if (atEnd) bar_->setValue(bar_->maximum());
    ShowPart();
}

// How many points have their room beside each other.
int LineChart::Fitting() const {
    const double width = viewport()->width() - kPlotMargins.left() - kPlotMargins.right();
    return std::max(1, static_cast<int>(width / kLeastRoom));
}

void LineChart::Fit() {
    const int count = static_cast<int>(data_.values.size());
    bar_->setRange(0, std::max(0, count - Fitting()));
    bar_->setPageStep(Fitting());
    bar_->setVisible(bar_->maximum() > 0);
    PlacePicture();
}

void LineChart::PlacePicture() {
    // The bar's room stays free without it: the axes would not follow a plot that moves alone.
    const int barHeight = bar_->sizeHint().height();
    bar_->setGeometry(0, height() - barHeight, width(), barHeight);
    QMarginsF margins = kPlotMargins;
    margins.setBottom(margins.bottom() + barHeight);
    chart()->setPlotArea(QRectF(QPointF(), viewport()->size()).marginsRemoved(margins));
}

void LineChart::ShowPart() {
    const int count = std::max(1, static_cast<int>(data_.values.size()));
    const int first = bar_->value();
    labelAxis_->setRange(first - 0.5, first + std::min(count, Fitting()) - 0.5);
    viewport()->update();
}

bool LineChart::IsSeen(std::size_t point) const {
    const auto place = static_cast<double>(point);
    return place > labelAxis_->min() && place < labelAxis_->max();
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
            if (!IsSeen(point) || IsNumeric(data_.labels[point]) != numbers) continue;
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
        if (!IsSeen(point)) continue;
        order.push_back(point);
        DrawMarker(painter, PlaceOf(point), point == pointed_ ? kPointedRadius : kMarkerRadius);
    }
    std::stable_sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
        return data_.values[left] > data_.values[right];
    });
    TextRoom room(painter);
    for (const std::size_t point : order) {
        room.Draw(PlaceOf(point) - QPointF(0, rise), Qs(NumberText(data_.values[point])));
    }
}

void LineChart::mouseMoveEvent(QMouseEvent* event) {
    QChartView::mouseMoveEvent(event);
    const QPointF place = chart()->mapToValue(event->position(), line_);
    const double nearest = std::round(place.x());
    const bool inside = chart()->plotArea().adjusted(0, 0, 1, 1).contains(event->position());
    if (!inside || nearest < 0 || nearest >= static_cast<double>(data_.values.size())) {
        return Point(std::nullopt, {});
    }
    Point(static_cast<std::size_t>(nearest), event->globalPosition().toPoint());
}

bool LineChart::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) Point(std::nullopt, {});
    return QChartView::viewportEvent(event);
}

// The point under the pointer, or none.
void LineChart::Point(const std::optional<std::size_t>& point, const QPoint& place) {
    if (point != pointed_) viewport()->update();
    pointed_ = point;
    if (!point) return QToolTip::hideText();
    const std::string label = *point < data_.labels.size() ? data_.labels[*point] : "";
    QToolTip::showText(place, Qs(label + ": " + NumberText(data_.values[*point])), viewport());
}

void LineChart::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint turn = event->angleDelta();
    constexpr int kTurnPerPoint = 40;  // a notch of a wheel turns by 120
    bar_->setValue(bar_->value() - (turn.x() != 0 ? turn.x() : turn.y()) / kTurnPerPoint);
}

void LineChart::keyPressEvent(QKeyEvent* event) {
    const int page = bar_->pageStep();
    switch (event->key()) {
        case Qt::Key_Left:
            return bar_->setValue(bar_->value() - 1);
        case Qt::Key_Right:
            return bar_->setValue(bar_->value() + 1);
        case Qt::Key_PageUp:
            return bar_->setValue(bar_->value() - page);
        case Qt::Key_PageDown:
            return bar_->setValue(bar_->value() + page);
        case Qt::Key_Home:
            return bar_->setValue(0);
        case Qt::Key_End:
            return bar_->setValue(bar_->maximum());
        default:
            event->ignore();
    }
}

QImage LineChart::Picture() {
    const int bar = bar_->isHidden() ? 0 : bar_->height();
    return grab(QRect(0, 0, width(), height() - bar)).toImage();
}

}  // namespace ssq
