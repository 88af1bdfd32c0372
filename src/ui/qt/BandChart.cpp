#include "ui/qt/BandChart.h"

#include <QAreaSeries>
#include <QChart>
#include <QGraphicsLayout>
#include <QHelpEvent>
#include <QLegendMarker>
#include <QLineSeries>
#include <QToolTip>
#include <QValueAxis>
#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "base/numbers.h"
#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

namespace {

constexpr std::size_t kColours = 4;
constexpr std::array<QRgb, kColours> kOnLight = {0xFF1F7A8C, 0xFFC0512D, 0xFF6A4FB0, 0xFF4F7A28};
constexpr std::array<QRgb, kColours> kOnDark = {0xFF62C3D3, 0xFFF0926E, 0xFFB7A3F0, 0xFFA5CC77};

// How much of its colour a band has on the ground.
constexpr double kFill = 0.3;
constexpr int kFillAlpha = 70;
constexpr double kEdge = 0.5;

constexpr int kDarkLightness = 128;  // of 255; the ground below it is dark
constexpr double kRoom = 1.1;        // of the value axis above the highest point
constexpr int kSteps = 4;            // about so many parts of an axis

QColor Mixed(const QColor& one, const QColor& other, double part) {
    const auto mix = [part](int a, int b) { return static_cast<int>(a + (b - a) * part); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()),
            mix(one.blue(), other.blue())};
}

// 1, 2, 2.5 or 5 times a power of ten, not below `least`.
double NiceStep(double least) {
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 2.5, 5.0}) {
        if (step * power >= least) return step * power;
    }
    return 10 * power;
}

int Decimals(double step) {
    int decimals = 0;
    for (; decimals < 3 && std::abs(step - std::round(step)) > 1e-9; step *= 10) ++decimals;
    return decimals;
}

}  // namespace

// The colours on the ground that the theme gives.
struct BandChart::Look {
    QColor ground;
    QColor text;
    QColor gridLine;
    QColor band;  // of tracks that share it
    const std::array<QRgb, kColours>* tracks = nullptr;

    QColor Track(std::size_t index) const { return QColor::fromRgb((*tracks)[index % kColours]); }
};

BandChart::BandChart(QWidget* parent)
    : QChartView(parent), drawAxis_(new QValueAxis), valueAxis_(new QValueAxis) {
    QChart& picture = *chart();
    picture.addAxis(drawAxis_, Qt::AlignBottom);
    picture.addAxis(valueAxis_, Qt::AlignLeft);
    picture.legend()->setAlignment(Qt::AlignTop);
    // The chart's own background keeps an old size while the view is hidden.
    picture.setBackgroundVisible(false);
    picture.setMargins({4, 4, 4, 4});
    picture.layout()->setContentsMargins(0, 0, 0, 0);
    drawAxis_->setLabelFormat(QStringLiteral("%.0f"));
    for (QValueAxis* axis : {drawAxis_, valueAxis_}) axis->setTickType(QValueAxis::TicksDynamic);
    setRenderHint(QPainter::Antialiasing);
    setMinimumHeight(170);
    Draw();
}

void BandChart::Show(BandChartData data) {
    data_ = std::move(data);
    Draw();
}

void BandChart::ShowScores(bool scores) {
    scores_ = scores;
    Draw();
}

QString BandChart::valueTitle() const {
    const QString unit = data_.unit.empty() ? QString() : Qs("（" + data_.unit + "）");
    return (scores_ ? QStringLiteral("累计中") : QStringLiteral("比机会线多中")) + unit;
}

double BandChart::ValueAt(const BandTrack& track, std::size_t draws) const {
    if (draws == 0) return 0;
    return track.score[draws - 1] - (scores_ ? 0 : track.expected[draws - 1]);
}

double BandChart::ChanceAt(const BandTrack& track, std::size_t draws) const {
    return scores_ && draws > 0 ? track.expected[draws - 1] : 0;
}

double BandChart::ReachAt(const BandTrack& track, std::size_t draws) {
    return draws > 0 ? track.reach[draws - 1] : 0;
}

BandChart::Look BandChart::LookOf() const {
    const QColor ground = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const bool isDark = ground.lightness() < kDarkLightness;
    return {.ground = ground,
            .text = text,
            .gridLine = Mixed(ground, text, 0.14),
            .band = palette().color(QPalette::Highlight),
            .tracks = isDark ? &kOnDark : &kOnLight};
}

void BandChart::Draw() {
    const Look look = LookOf();
    QChart& picture = *chart();
    picture.removeAllSeries();
    setBackgroundBrush(look.ground);
    picture.legend()->setLabelColor(look.text);
    picture.legend()->setFont(font());
    picture.legend()->setVisible(!data_.labels.empty());
    for (QValueAxis* axis : {drawAxis_, valueAxis_}) {
        axis->setLabelsFont(font());
        axis->setLabelsColor(look.text);
        axis->setTitleFont(font());
        axis->setTitleBrush(look.text);
        axis->setLinePen(look.gridLine);
        axis->setGridLinePen(look.gridLine);
        axis->setVisible(!data_.labels.empty());
    }
    valueAxis_->setTitleText(valueTitle());
    setAccessibleName(valueTitle());
    const bool isOne = HasOneBand();
    std::size_t index = 0;
    for (const BandTrack& track : data_.tracks) {
        DrawBand(track, look, isOne ? look.band : look.Track(index), index == 0);
        ++index;
    }
    // With the chance lines taken off, all of them are the same line.
    bool isFirst = true;
    for (const BandTrack& track : data_.tracks) {
        if (isFirst || scores_) DrawChanceLine(track, look, isFirst);
        isFirst = false;
    }
    index = 0;
    for (const BandTrack& track : data_.tracks) {
        const auto earlier = std::span(data_.tracks).first(index);
        const bool isCovering =
            std::ranges::find(earlier, track.score, &BandTrack::score) != earlier.end();
        DrawTrack(track, look.Track(index++), isCovering);
    }
    FitAxes();
}

void BandChart::Put(QAbstractSeries* series, bool isNamed) {
    chart()->addSeries(series);
    series->attachAxis(drawAxis_);
    series->attachAxis(valueAxis_);
    const auto markers = chart()->legend()->markers(series);
    for (QLegendMarker* marker : markers) marker->setVisible(isNamed);
}

// The tracks' bands nearly coincide: the same line is inside all of them or none.
bool BandChart::HasOneBand() const {
    constexpr double kNearly = 0.05;
    if (data_.labels.empty()) return true;
    const auto reach = [](const BandTrack& track) { return track.reach.back(); };
    const auto [least, most] = std::ranges::minmax(data_.tracks, {}, reach);
    return reach(least) >= reach(most) * (1 - kNearly);
}

void BandChart::DrawBand(const BandTrack& track, const Look& look, const QColor& colour,
                         bool isNamed) {
    QList<QPointF> upper;
    QList<QPointF> lower;
    for (std::size_t draws = 0; draws <= track.score.size(); ++draws) {
        const auto x = static_cast<double>(draws);
        upper.append({x, ChanceAt(track, draws) + ReachAt(track, draws)});
        lower.append({x, ChanceAt(track, draws) - ReachAt(track, draws)});
    }
    auto* band = new QAreaSeries(new QLineSeries, new QLineSeries);
    band->upperSeries()->setParent(band);
    band->lowerSeries()->setParent(band);
    band->upperSeries()->replace(upper);
    band->lowerSeries()->replace(lower);
    band->setName(QStringLiteral("95%运气范围"));
    QColor fill = Mixed(look.ground, colour, kFill);
    fill.setAlpha(kFillAlpha);
    band->setBrush(fill);
    band->setPen(QPen(Mixed(look.ground, colour, kEdge), 1));
    Put(band, isNamed);
}

void BandChart::DrawChanceLine(const BandTrack& track, const Look& look, bool isNamed) {
    auto* line = new QLineSeries;
    for (std::size_t draws = 0; draws <= track.score.size(); ++draws) {
        line->append(static_cast<double>(draws), ChanceAt(track, draws));
    }
    line->setName(QStringLiteral("机会线"));
    line->setPen(QPen(look.text, 1, Qt::DashLine));
    Put(line, isNamed);
}

void BandChart::DrawTrack(const BandTrack& track, const QColor& colour, bool isCovering) {
    auto* line = new QLineSeries;
    QList<QPointF> points;
    for (std::size_t draws = 0; draws <= track.score.size(); ++draws) {
        points.append({static_cast<double>(draws), ValueAt(track, draws)});
    }
    line->replace(points);
    line->setName(Qs(track.name));
    line->setPen(QPen(colour, 2, isCovering ? Qt::DashLine : Qt::SolidLine));
    Put(line, true);
}

void BandChart::FitAxes() {
    double high = 0;
    double low = 0;
    for (const BandTrack& track : data_.tracks) {
        for (std::size_t draws = 1; draws <= track.score.size(); ++draws) {
            const double value = ValueAt(track, draws);
            const double chance = ChanceAt(track, draws);
            const double reach = ReachAt(track, draws);
            high = std::max({high, value, chance + reach});
            low = std::min({low, value, chance - reach});
        }
    }
    if (!scores_) high = std::max(high, -low);
    high = std::max(high * kRoom, 1.0);
    const double step = NiceStep(high / (scores_ ? kSteps : kSteps / 2.0));
    valueAxis_->setTickAnchor(0);
    valueAxis_->setTickInterval(step);
    valueAxis_->setRange(scores_ ? 0 : -high, high);
    valueAxis_->setLabelFormat((scores_ ? QStringLiteral("%.") : QStringLiteral("%+.")) +
                               QString::number(Decimals(step)) + u'f');
    const auto draws = std::max<double>(static_cast<double>(data_.labels.size()), 1);
    drawAxis_->setTickAnchor(0);
    drawAxis_->setTickInterval(std::max(NiceStep(draws / kSteps / 2), 1.0));
    drawAxis_->setRange(0, draws);
}

void BandChart::changeEvent(QEvent* event) {
    QChartView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Draw();
}

QString BandChart::TipAt(const QPoint& place) const {
    if (data_.tracks.empty()) return {};
    const double x = chart()->mapToValue(mapToScene(place), chart()->series().constLast()).x();
    const auto draws = static_cast<std::size_t>(std::max(std::round(x), 0.0));
    if (draws < 1 || draws > data_.labels.size()) return {};
    QStringList lines{Qs(data_.labels[draws - 1])};
    for (const BandTrack& track : data_.tracks) {
        const double value = ValueAt(track, draws);
        const std::string sign = !scores_ && value > 0 ? "+" : "";
        lines.append(Qs(track.name + "：" + sign + NumberText(Round(value)) + "（运气范围 " +
                        NumberText(Round(ChanceAt(track, draws) - ReachAt(track, draws))) + "～" +
                        NumberText(Round(ChanceAt(track, draws) + ReachAt(track, draws))) + "）"));
    }
    return lines.join(u'\n');
}

bool BandChart::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), TipAt(help->pos()), this);
        return true;
    }
    return QChartView::viewportEvent(event);
}

}  // namespace ssq
