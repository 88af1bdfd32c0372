// A line chart of one series: values with labels, a fixed value axis and a title.
#pragma once

#include <QChartView>
#include <QImage>
#include <optional>
#include <string>
#include <vector>

class QLineSeries;
class QScrollBar;
class QValueAxis;

namespace ssq {

struct LineChartData {
    std::string title;
    std::vector<std::string> labels;  // one per value
    std::vector<double> values;
    double min = 0;  // of the value axis; values outside lie outside the picture
    double max = 1;
    int division = 1;  // into how many parts the value axis is divided
    std::string series;
};

// A point has at least 12 pixels; where all of them together do not fit, the chart scrolls, and
// stands at the newest, the last. Under the pointer the nearest point tells its label and value.
class LineChart final : public QChartView {
    Q_OBJECT

  public:
    explicit LineChart(QWidget* parent = nullptr);

    void Show(const LineChartData& data);
    const LineChartData& data() const { return data_; }

    // What is seen, without the scroll bar.
    QImage Picture();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QPointF PlaceOf(std::size_t point) const;
    int Fitting() const;
    bool IsSeen(std::size_t point) const;
    void Fit();
    void ShowPart();
    void PlacePicture();
    void DrawScale(QPainter& painter) const;
    void DrawLabels(QPainter& painter) const;
    void DrawPoints(QPainter& painter) const;
    void Point(const std::optional<std::size_t>& point, const QPoint& place);

    LineChartData data_;
    QLineSeries* line_;
    QValueAxis* labelAxis_;
    QValueAxis* valueAxis_;
    QScrollBar* bar_;  // its value is the first point seen
    std::optional<std::size_t> pointed_;
};

}  // namespace ssq
