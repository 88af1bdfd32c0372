#include "ui/qt/GridFonts.h"

#include <QHashFunctions>
#include <algorithm>
#include <cmath>
#include <functional>

#include "base/text.h"

namespace ssq {

namespace {

bool MergesWithNeighbour(const ResultGrid& grid, int row, int col) {
    if (!grid.mergeRow(row)) return false;
    const std::string& text = grid.cell(row, col);
    return text == grid.cell(row, col - 1) || text == grid.cell(row, col + 1);
}

}  // namespace

const GridFonts::Face& GridFonts::For(const CellStyle& style) {
    return Scaled(style, 100);
}

const GridFonts::Face& GridFonts::Fitting(const CellStyle& style, const QString& text,
                                          const QSize& room) {
    constexpr int kSmallestPercent = 75;
    constexpr int kStep = 5;  // keeps the number of faces small
    const Face& face = For(style);
    int percent = 100;
    const int textWidth = face.metrics.horizontalAdvance(text);
    if (textWidth > room.width()) percent = 100 * room.width() / textWidth;
    if (style.fontSize > 0) {
        const int inkHeight = face.metrics.tightBoundingRect(text).height();
        if (inkHeight > room.height()) percent = std::min(percent, 100 * room.height() / inkHeight);
    }
    if (percent >= 100) return face;
    return Scaled(style, std::max(percent / kStep * kStep, kSmallestPercent));
}

GridFonts::Line GridFonts::MakeLine(const CellStyle& style, const std::string& text,
                                    const QSize& room) {
    const QString whole = CellText(text);
    const Face& face = Fitting(style, whole, room);
    Line line{&face, whole, face.metrics.horizontalAdvance(whole), {}, false};
    line.clipped = line.width > room.width();
    if (line.clipped) {
        line.text = face.metrics.elidedText(whole, Qt::ElideRight, room.width());
        line.width = face.metrics.horizontalAdvance(line.text);
    }
    line.ink = face.metrics.tightBoundingRect(line.text);
    return line;
}

const GridFonts::Line& GridFonts::Lay(const CellStyle& style, const std::string& text,
                                      const QSize& room) {
    constexpr std::size_t kMostLines = 8192;  // a few screens of different texts, some 2 MB
    LineKey key{&For(style), room.width(), room.height(), text};
    const auto found = lines_.find(key);
    if (found != lines_.end()) return found->second;
    if (lines_.size() >= kMostLines) lines_.clear();
    return lines_.emplace(std::move(key), MakeLine(style, text, room)).first->second;
}

std::size_t GridFonts::LineHash::operator()(const LineKey& key) const {
    const std::size_t text = std::hash<std::string>()(key.text);
    return qHashMulti(text, key.face, key.width, key.height);
}

const GridFonts::Face& GridFonts::Scaled(const CellStyle& style, int percent) {
    const Key key{style.fontName, style.fontSize, style.bold, percent};
    const auto found = faces_.find(key);
    if (found != faces_.end()) return found->second;
    QFont font = base_;
    if (!style.fontName.empty()) font.setFamily(QString::fromStdString(style.fontName));
    if (style.fontSize > 0) font.setPointSize(style.fontSize);
    if (percent < 100 || zoom_ != 1) font.setPointSizeF(font.pointSizeF() * zoom_ * percent / 100);
    font.setBold(style.bold);
    return faces_.emplace(key, Face{font, QFontMetrics(font)}).first->second;
}

QString CellText(const std::string& text) {
    QString line = QString::fromStdString(text);
    for (QChar& c : line) {
        if (c == u'\n' || c == u'\r' || c == u'\t') c = u' ';
    }
    return line;
}

int FittedColWidth(const ResultGrid& grid, int col, GridFonts& fonts) {
    constexpr int kSmallest = 24;
    constexpr int kLargest = 400;
    constexpr int kOfEmptyColumn = 67;
    constexpr int kLine = 1;
    constexpr int kAir = 2;

    int widest = 0;
    const auto measure = [&](int row) {
        const auto& face = fonts.For(grid.style(row, col));
        widest = std::max(widest, face.metrics.horizontalAdvance(CellText(grid.cell(row, col))));
    };
    const int fixedRows = std::min(grid.fixedRows(), grid.rows());
    for (int row = 0; row < fixedRows; ++row) {
        if (!MergesWithNeighbour(grid, row, col)) measure(row);
    }
    int longestRow = -1;
    std::size_t longest = 0;
    for (int row = fixedRows; row < grid.rows(); ++row) {
        const std::size_t length = DisplayWidth(grid.cell(row, col));
        if (length > longest) {
            longest = length;
            longestRow = row;
        }
    }
    if (longestRow >= 0) measure(longestRow);
    const auto zoomed = [&fonts](int pixels) {
        return static_cast<int>(std::lround(pixels * fonts.zoom()));
    };
    if (widest == 0) return zoomed(kOfEmptyColumn);
    return std::clamp(widest + 2 * (kCellPadding + kAir) + kLine, zoomed(kSmallest),
                      zoomed(kLargest));
}

std::vector<int> FittedColWidths(const ResultGrid& grid, GridFonts& fonts) {
    std::vector<int> widths(static_cast<std::size_t>(grid.cols()));
    for (int col = 0; col < grid.cols(); ++col) {
        if (grid.colWidth(col)) continue;
        widths[static_cast<std::size_t>(col)] = FittedColWidth(grid, col, fonts);
    }
    for (const auto& [first, last] : grid.evenCols()) {
        const auto begin = widths.begin() + first;
        const auto end = widths.begin() + last + 1;
        std::fill(begin, end, *std::max_element(begin, end));
    }
    return widths;
}

GridMetrics GridMetricsWith(std::vector<int> fittedWidths, GridFonts& fonts, double pixelsPerTwip) {
    constexpr int kRowPadding = 2;  // pixels around the font of a row without a height
    const int height = static_cast<int>(std::lround(kDefaultRowTwips * pixelsPerTwip));
    const int fontHeight = fonts.For(CellStyle{}).metrics.height() + kRowPadding;
    return {pixelsPerTwip, std::max(height, fontHeight), std::move(fittedWidths)};
}

GridMetrics GridMetricsFor(const ResultGrid& grid, GridFonts& fonts, double pixelsPerTwip) {
    return GridMetricsWith(FittedColWidths(grid, fonts), fonts, pixelsPerTwip);
}

}  // namespace ssq
