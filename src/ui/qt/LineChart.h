// A line chart of one series: values with labels, a fixed value axis and a title.
#pragma once

#include <QChartView>
#include <string>
#include <vector>

class QLineSeries;
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

class LineChart final : public QChartView {
    Q_OBJECT

  public:
    explicit LineChart(QWidget* parent = nullptr);

    void Show(const LineChartData& data);
    const LineChartData& data() const { return data_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

  private:
    QPointF PlaceOf(std::size_t point) const;
    bool IsCrowded() const;
    void FitLine();
    void DrawScale(QPainter& painter) const;
    void DrawLabels(QPainter& painter) const;
    void DrawPoints(QPainter& painter) const;
    void ShowTip(const QPointF& place, bool entered);

    LineChartData data_;
    QLineSeries* line_;
    QValueAxis* labelAxis_;
    QValueAxis* valueAxis_;
};

}  // namespace ssq
