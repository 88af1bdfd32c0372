// Running scores against what chance expects of them: a line a track, each with the band in which
// chance alone keeps it in 95 of 100 cases.
#pragma once

#include <QChartView>
#include <string>
#include <vector>

class QAbstractSeries;
class QValueAxis;

namespace ssq {

// One series of judgements, summed up: entry i stands behind i + 1 draws.
struct BandTrack {
    std::string name;
    std::vector<double> score;
    std::vector<double> expected;
    std::vector<double> reach;  // of the band to either side of `expected`
};

struct BandChartData {
    std::vector<std::string> labels;  // one a draw
    std::vector<BandTrack> tracks;
    std::string unit;  // of the scores; empty where the tracks have several
};

class BandChart final : public QChartView {
    Q_OBJECT

  public:
    explicit BandChart(QWidget* parent = nullptr);

    void Show(BandChartData data);
    // Whether the scores themselves are shown instead of what they are above the chance line.
    void ShowScores(bool scores);

    const BandChartData& data() const { return data_; }
    QString valueTitle() const;
    // What is drawn: the score of a track behind `draws` draws, the chance line, and the band.
    double ValueAt(const BandTrack& track, std::size_t draws) const;
    double ChanceAt(const BandTrack& track, std::size_t draws) const;
    static double ReachAt(const BandTrack& track, std::size_t draws);

  protected:
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    struct Look;

    Look LookOf() const;
    void Draw();
    bool HasOneBand() const;
    void DrawBand(const BandTrack& track, const Look& look, const QColor& colour, bool isNamed);
    void DrawChanceLine(const BandTrack& track, const Look& look, bool isNamed);
    // `isCovering`: an earlier track has the same line, which shall be seen, too.
    void DrawTrack(const BandTrack& track, const QColor& colour, bool isCovering);
    void Put(QAbstractSeries* series, bool isNamed);
    void FitAxes();
    QString TipAt(const QPoint& place) const;

    BandChartData data_;
    bool scores_ = false;
    QValueAxis* drawAxis_;
    QValueAxis* valueAxis_;
};

}  // namespace ssq
