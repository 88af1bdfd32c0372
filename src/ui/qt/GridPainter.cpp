#include "ui/qt/GridPainter.h"

#include <QPainter>
#include <QPen>
#include <algorithm>
#include <array>
#include <cmath>

#include "base/numbers.h"
#include "ui/GridLook.h"

namespace ssq {

namespace {

constexpr const char* kTick = "√";
constexpr QRgb kPaper = qRgb(0xFF, 0xFF, 0xFF);
constexpr QRgb kInk = qRgb(0x1E, 0x26, 0x24);
constexpr QRgb kFreezeLine = qRgb(0x8F, 0xA3, 0x9B);
constexpr QRgb kHitGround = qRgb(0xFF, 0xE5, 0x5C);
constexpr QRgb kFootLine = qRgb(0x2B, 0x4A, 0x45);
constexpr int kFootLineWidth = 2;  // pixels
constexpr int kCrossAlpha = 48;
constexpr int kPaleAlpha = 130;  // of texts shown faintly
constexpr int kSelectionAlpha = 72;
constexpr int kSelectionAlphaUnfocused = 44;

QColor Colour(const Rgb& rgb) {
    return {rgb.red, rgb.green, rgb.blue};
}

// A text colour that can be read on the ground.
QColor InkOn(const Rgb& ground) {
    return IsDark(ground) ? Colour(kInkOnDark) : QColor(kInk);
}

QRect Rect(const PixelRect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

// One device pixel wide whatever the scale of the screen.
QPen Hairline(const QColor& colour) {
    QPen pen(colour, 0);
    pen.setCosmetic(true);
    return pen;
}

Qt::Alignment HorizontalAlignment(const ResultGrid& grid, int row, int col) {
    switch (grid.alignment(col)) {
        case Align::kCentre:
            return Qt::AlignHCenter;
        case Align::kLeft:
            return Qt::AlignLeft;
        case Align::kGeneral:
            break;
    }
    return IsNumeric(grid.cell(row, col)) ? Qt::AlignRight : Qt::AlignLeft;
}

// Between a text that needs all the room and the edges of its cell.
constexpr int kTightPadding = 1;

// Where the text of a cell may stand; a line takes the right and bottom pixel.
QRect Room(const QRect& cell) {
    return cell.adjusted(kTightPadding, 0, -kTightPadding - 1, -1);
}

// Texts stand on one line along a row; a large one is centred by its own ink instead.
int Baseline(const CellStyle& style, const GridFonts::Line& line, const QRect& room) {
    const QFontMetrics& metrics = line.face->metrics;
    if (style.fontSize > 0 && metrics.height() > room.height()) {
        return room.center().y() - line.ink.center().y();
    }
    return room.top() + (room.height() - metrics.height() + 1) / 2 + metrics.ascent();
}

}  // namespace

QRect GridPainter::Pane::rect() const {
    return {cols.begin, rows.begin, cols.end - cols.begin, rows.end - rows.begin};
}

GridPainter::Pane GridPainter::Pane::Inside(const QRect& area, const GridScene& scene) const {
    const auto narrow = [](GridAxis::Strip strip, const GridAxis& axis, int scroll, int from,
                           int to) {
        strip.begin = std::clamp(from, strip.begin, strip.end);
        strip.end = std::clamp(to, strip.begin, strip.end);
        if (strip.begin >= strip.end) return GridAxis::Strip{0, -1, strip.begin, strip.begin};
        strip.first = axis.IndexAt(strip.begin, scroll);
        strip.last = axis.IndexAt(strip.end - 1, scroll);
        return strip;
    };
    return {narrow(rows, scene.geometry.rows(), scene.scroll.y(), area.top(), area.bottom() + 1),
            narrow(cols, scene.geometry.cols(), scene.scroll.x(), area.left(), area.right() + 1),
            fixed};
}

void GridPainter::Paint(const QRect& area) {
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.fillRect(area, QColor(kPaper));
    const auto rowStrips = scene_.geometry.rows().Strips(scene_.scroll.y(), scene_.view.height());
    const auto colStrips = scene_.geometry.cols().Strips(scene_.scroll.x(), scene_.view.width());
    for (std::size_t down = 0; down < rowStrips.size(); ++down) {
        for (std::size_t across = 0; across < colStrips.size(); ++across) {
            const Pane pane{rowStrips[down], colStrips[across], down == 0 || across == 0};
            PaintPane(pane.Inside(area, scene_), area);
        }
    }
    painter_.setClipRect(area);
    PaintMerges(area);
    PaintFreezeLines(area);
    PaintFootLine(area);
    PaintSortMark(area);
    if (scene_.showsSelection) PaintSelection(area);
}

void GridPainter::PaintPane(const Pane& pane, const QRect& area) {
    const QRect clip = pane.rect() & area;
    if (clip.isEmpty()) return;
    painter_.setClipRect(clip);
    PaintBacks(pane);
    PaintCross(clip);
    PaintLines(pane);
    PaintTexts(pane);
}

void GridPainter::PaintBacks(const Pane& pane) {
    const auto& back = scene_.grid.gridBack;
    const QColor ground = pane.fixed ? Colour(kFixedBack) : back ? Colour(*back) : QColor(kPaper);
    painter_.fillRect(pane.rect(), ground);
    for (int row = pane.rows.first; row <= pane.rows.last; ++row) {
        for (int col = pane.cols.first; col <= pane.cols.last; ++col) {
            const auto own = OwnGround(row, col);
            if (!own) continue;
            const PixelRect rect =
                scene_.geometry.CellRect(row, col, scene_.scroll.x(), scene_.scroll.y());
            painter_.fillRect(Rect(rect), *own);
        }
    }
}

bool GridPainter::IsHit(int row, int col) const {
    return !scene_.hits.empty() && std::ranges::binary_search(scene_.hits, CellPlace{row, col});
}

// The ground of a cell that has another than the grid.
std::optional<QColor> GridPainter::OwnGround(int row, int col) const {
    if (IsHit(row, col)) return QColor(kHitGround);
    const auto& back = scene_.grid.style(row, col).back;
    return back ? std::optional(Colour(*back)) : std::nullopt;
}

void GridPainter::PaintLines(const Pane& pane) {
    const auto& own = scene_.grid.gridLines;
    painter_.setPen(Hairline(pane.fixed ? Colour(kFixedLine)
                             : own      ? Colour(*own)
                                        : Colour(kGridLine)));
    for (int row = pane.rows.first; row <= pane.rows.last; ++row) {
        DrawBottomLine(scene_.geometry.rows().End(row, scene_.scroll.y()), pane.cols.begin,
                       pane.cols.end);
    }
    for (int col = pane.cols.first; col <= pane.cols.last; ++col) {
        if (scene_.geometry.cols().size(col) == 0) continue;
        DrawRightLine(scene_.geometry.cols().End(col, scene_.scroll.x()), pane.rows.begin,
                      pane.rows.end);
    }
}

// A cell's lines are its last device pixels. Where a logical pixel is no whole number of those, one
// drawn at the last logical pixel would leave a strip of the cell's colour behind it.
void GridPainter::DrawRightLine(int end, int top, int bottom) {
    const QTransform device = painter_.deviceTransform();
    const double x =
        (std::round(end * device.m11() + device.dx()) - 1 - device.dx()) / device.m11();
    painter_.drawLine(QLineF(x, top, x, bottom));
}

void GridPainter::DrawBottomLine(int end, int left, int right) {
    const QTransform device = painter_.deviceTransform();
    const double y =
        (std::round(end * device.m22() + device.dy()) - 1 - device.dy()) / device.m22();
    painter_.drawLine(QLineF(left, y, right, y));
}

void GridPainter::PaintTexts(const Pane& pane) {
    for (int row = pane.rows.first; row <= pane.rows.last; ++row) {
        for (int col = pane.cols.first; col <= pane.cols.last; ++col) {
            if (scene_.grid.cell(row, col).empty()) continue;
            const PixelRect rect =
                scene_.geometry.CellRect(row, col, scene_.scroll.x(), scene_.scroll.y());
            if (!rect.empty()) PaintText(row, col, Rect(rect));
        }
    }
}

void GridPainter::PaintText(int row, int col, const QRect& rect) {
    const CellStyle& style = scene_.grid.style(row, col);
    if (scene_.grid.cell(row, col) == kTick) return PaintTick(rect, Ink(row, col));
    const QRect room = Room(rect);
    const GridFonts::Line& line = fonts_.Lay(style, scene_.grid.cell(row, col), room.size());
    const Qt::Alignment alignment =
        line.clipped ? Qt::AlignLeft : HorizontalAlignment(scene_.grid, row, col);
    const int padding = std::clamp(room.width() - line.width, 0, kCellPadding - kTightPadding);
    int x = room.left() + padding;
    if (alignment == Qt::AlignHCenter) x = room.left() + (room.width() - line.width) / 2;
    if (alignment == Qt::AlignRight) x = room.right() + 1 - line.width - padding;

    if (style.mark && !IsHit(row, col)) PaintMark(rect, line.width, Colour(*style.mark));
    painter_.setPen(Ink(row, col));
    painter_.setFont(line.face->font);
    painter_.drawText(QPoint(x, Baseline(style, line, room)), line.text);
}

QColor GridPainter::Ink(int row, int col) const {
    const ResultGrid& grid = scene_.grid;
    const CellStyle& style = grid.style(row, col);
    if (IsHit(row, col)) return QColor(kInk);
    if (style.fore) return Colour(*style.fore);
    const bool fixed = row < grid.fixedRows() || col < grid.fixedCols();
    auto ground = style.mark ? style.mark : style.back;
    if (!ground && !fixed) ground = grid.gridBack;
    QColor ink = ground ? InkOn(*ground) : QColor(kInk);
    const bool pale = !fixed && !grid.paleText.empty() && grid.cell(row, col) == grid.paleText;
    if (pale) ink.setAlpha(kPaleAlpha);
    return ink;
}

// Fonts draw the root sign that stands for a tick; a tick has no upper bar.
void GridPainter::PaintTick(const QRect& cell, const QColor& colour) {
    constexpr double kShare = 0.55;  // of the lower of the cell's sides
    constexpr double kThickness = 0.16;
    const double size = kShare * std::min(cell.width(), cell.height());
    const QPointF centre = QRectF(cell.adjusted(0, 0, -1, -1)).center();
    const std::array<QPointF, 3> corners{centre + size * QPointF(-0.5, 0.05),
                                         centre + size * QPointF(-0.15, 0.4),
                                         centre + size * QPointF(0.5, -0.4)};
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.setPen(QPen(colour, size * kThickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.drawPolyline(corners.data(), static_cast<int>(corners.size()));
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

// A disc, drawn out to a lozenge where the text is wider than the cell is high.
void GridPainter::PaintMark(const QRect& cell, int textWidth, const QColor& colour) {
    constexpr double kGap = 0.5;  // pixels between the mark and the lines
    constexpr double kAir = 1;    // pixels between the text and the mark's sides
    const double height = cell.height() - 1 - 2 * kGap;
    const double width = std::min(std::max(height, textWidth + 2 * kAir), cell.width() - 1.0);
    QRectF mark(0, 0, width, height);
    mark.moveCenter(QRectF(cell.adjusted(0, 0, -1, -1)).center());
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colour);
    painter_.drawRoundedRect(mark, height / 2, height / 2);
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void GridPainter::PaintMerges(const QRect& area) {
    for (const CellRange& merge : scene_.geometry.merges()) {
        const QRect rect =
            Rect(scene_.geometry.VisibleRect(merge, scene_.scroll.x(), scene_.scroll.y(),
                                             scene_.view.width(), scene_.view.height()));
        if (rect.isEmpty() || !rect.intersects(area)) continue;
        painter_.setClipRect(rect & area);
        painter_.fillRect(rect, OwnGround(merge.top, merge.left).value_or(Colour(kFixedBack)));
        painter_.setPen(Hairline(Colour(kFixedLine)));
        DrawRightLine(rect.right() + 1, rect.top(), rect.bottom());
        DrawBottomLine(rect.bottom() + 1, rect.left(), rect.right());
        PaintText(merge.top, merge.left, rect);
    }
    painter_.setClipRect(area);
}

void GridPainter::PaintFreezeLines(const QRect& area) {
    const GridAxis& rows = scene_.geometry.rows();
    const GridAxis& cols = scene_.geometry.cols();
    const int right = std::min(cols.extent() - scene_.scroll.x(), scene_.view.width());
    const int bottom = std::min(rows.extent() - scene_.scroll.y(), scene_.view.height());
    painter_.setClipRect(area);
    painter_.setPen(Hairline(QColor(kFreezeLine)));
    if (rows.fixedExtent() > 0) DrawBottomLine(rows.fixedExtent(), 0, right - 1);
    if (cols.fixedExtent() > 0) DrawRightLine(cols.fixedExtent(), 0, bottom - 1);
}

// Above the recommendation and what sums up, where the draws end.
void GridPainter::PaintFootLine(const QRect& area) {
    const GridAxis& rows = scene_.geometry.rows();
    const int foot = scene_.grid.footRow.value_or(rows.count());
    if (foot <= rows.fixed() || foot >= rows.count()) return;
    const int y = rows.Begin(foot, scene_.scroll.y());
    if (y < rows.fixedExtent() || y > scene_.view.height()) return;
    const int right =
        std::min(scene_.geometry.cols().extent() - scene_.scroll.x(), scene_.view.width());
    const QColor colour = scene_.grid.gridBack ? QColor(Qt::white) : QColor(kFootLine);
    painter_.fillRect(QRect(0, y - kFootLineWidth, right, kFootLineWidth) & area, colour);
}

// The row and the column under the pointer, so that the eye finds the headings of a cell. Beneath
// the texts, which stay clear.
void GridPainter::PaintCross(const QRect& area) {
    if (scene_.cross.row < 0) return;
    const GridAxis& rows = scene_.geometry.rows();
    const GridAxis& cols = scene_.geometry.cols();
    const auto visible = [&](const CellRange& cells) {
        return Rect(scene_.geometry.VisibleRect(cells, scene_.scroll.x(), scene_.scroll.y(),
                                                scene_.view.width(), scene_.view.height()));
    };
    QColor onFixed = scene_.highlight;
    onFixed.setAlpha(kCrossAlpha);
    QColor onBody = scene_.grid.gridBack ? QColor(Qt::white) : scene_.highlight;
    onBody.setAlpha(kCrossAlpha);
    const QRect row = visible({scene_.cross.row, 0, scene_.cross.row, cols.count() - 1});
    const QRect col = visible({0, scene_.cross.col, rows.count() - 1, scene_.cross.col});
    const QRect body(cols.fixedExtent(), rows.fixedExtent(), scene_.view.width(),
                     scene_.view.height());
    for (const QRect& strip : {row, col}) {
        painter_.fillRect(strip & body & area, onBody);
    }
    painter_.fillRect(row & QRect(0, 0, cols.fixedExtent(), scene_.view.height()) & area, onFixed);
    painter_.fillRect(col & QRect(0, 0, scene_.view.width(), rows.fixedExtent()) & area, onFixed);
}

// A small triangle at the heading's upper edge, where no text is.
void GridPainter::PaintSortMark(const QRect& area) {
    if (scene_.sortedCol < 0 || scene_.grid.fixedRows() == 0) return;
    const int heading = scene_.grid.fixedRows() - 1;
    const QRect cell = Rect(scene_.geometry.VisibleRect(
        scene_.geometry.MergedAround(heading, scene_.sortedCol), scene_.scroll.x(),
        scene_.scroll.y(), scene_.view.width(), scene_.view.height()));
    if (cell.isEmpty() || !cell.intersects(area)) return;
    constexpr double kHalf = 4;
    constexpr double kHeight = 4;
    const double x = QRectF(cell).center().x();
    const double base = cell.top() + (scene_.descending ? 0.0 : kHeight);
    const double tip = cell.top() + (scene_.descending ? kHeight : 0.0);
    const std::array<QPointF, 3> corners{QPointF(x - kHalf, base), QPointF(x + kHalf, base),
                                         QPointF(x, tip)};
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(QColor(kFootLine));
    painter_.drawPolygon(corners.data(), static_cast<int>(corners.size()));
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void GridPainter::PaintSelection(const QRect& area) {
    const CellRange range = SelectedRange(scene_.grid);
    if (range.bottom < range.top) return;
    const auto visible = [&](const CellRange& cells) {
        return Rect(scene_.geometry.VisibleRect(cells, scene_.scroll.x(), scene_.scroll.y(),
                                                scene_.view.width(), scene_.view.height()));
    };
    QColor shade = scene_.highlight;
    shade.setAlpha(scene_.focused ? kSelectionAlpha : kSelectionAlphaUnfocused);
    const QRect rect = visible(range);
    if (rect.isEmpty() || !rect.intersects(area)) return;
    painter_.fillRect(rect & area, shade);
    PaintFrame(rect);

    const int row = scene_.grid.row();
    const int col = scene_.grid.col();
    const QRect anchor = visible({row, col, row, col});
    if (!anchor.isEmpty() && anchor != rect) PaintFrame(anchor);
}

// A dark line inside a light one stands out from every ground.
void GridPainter::PaintFrame(const QRect& rect) {
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(Hairline(Qt::white));
    painter_.drawRect(rect.adjusted(0, 0, -2, -2));
    painter_.setPen(Hairline(scene_.highlight.darker()));
    painter_.drawRect(rect.adjusted(1, 1, -3, -3));
}

bool TextIsClipped(const ResultGrid& grid, int row, int col, const QSize& size, GridFonts& fonts) {
    return fonts.Lay(grid.style(row, col), grid.cell(row, col), Room({{0, 0}, size}).size())
        .clipped;
}

}  // namespace ssq
