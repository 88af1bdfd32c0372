// The fonts of a grid's cells and the widths that its columns need for their texts.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QRect>
#include <QSize>
#include <QString>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "ui/GridGeometry.h"
#include "ui/ResultGrid.h"

namespace ssq {

// Blank pixels between a text and the left and right edge of its cell.
inline constexpr int kCellPadding = 3;
// The height of a row without one, unless its font needs more.
inline constexpr int kDefaultRowTwips = 300;

class GridFonts {
  public:
    struct Face {
        QFont font;
        QFontMetrics metrics;
    };

    // `base` is the font of cells that name none; all sizes, its own included, are taken times
    // `zoom`.
    explicit GridFonts(const QFont& base, double zoom = 1) : base_(base), zoom_(zoom) {}

    double zoom() const { return zoom_; }

    const Face& For(const CellStyle& style);

    // A text as it stands in a cell.
    struct Line {
        const Face* face;  // valid as long as the fonts
        QString text;      // cut short, with an ellipsis, when it is clipped
        int width;         // pixels
        QRect ink;         // around the origin of the base line
        bool clipped;
    };

    // Lays a text out for `room`, in the size that lets it fit but not below three quarters of its
    // own. The line is kept, since grids repeat their texts and measuring one costs several times
    // as much as finding it again; valid until the next call.
    const Line& Lay(const CellStyle& style, const std::string& text, const QSize& room);

  private:
    using Key = std::tuple<std::string, int, bool, int>;

    struct LineKey {
        const Face* face;
        int width;
        int height;
        std::string text;

        bool operator==(const LineKey&) const = default;
    };
    struct LineHash {
        std::size_t operator()(const LineKey& key) const;
    };

    const Face& Scaled(const CellStyle& style, int percent);
    const Face& Fitting(const CellStyle& style, const QString& text, const QSize& room);
    Line MakeLine(const CellStyle& style, const std::string& text, const QSize& room);

    QFont base_;
    double zoom_;
    std::map<Key, Face> faces_;
    std::unordered_map<LineKey, Line, LineHash> lines_;
};

// A cell's text on one line.
QString CellText(const std::string& text);

// The width in pixels, lines and padding included, that shows the header and the longest text of
// a column, within 24 and 400 pixels; 67 (1000 twips at 96 dpi) when the column is empty; these
// bounds are for no zoom. The
// longest text is found by counting characters, Chinese ones twice, so that only a few are
// measured.
int FittedColWidth(const ResultGrid& grid, int col, GridFonts& fonts);

// The widths in pixels of the columns without one of their own, 0 for the others.
std::vector<int> FittedColWidths(const ResultGrid& grid, GridFonts& fonts);

// What the geometry of a grid in these fonts needs; zoom is part of `pixelsPerTwip`.
GridMetrics GridMetricsFor(const ResultGrid& grid, GridFonts& fonts, double pixelsPerTwip);
// The same with widths found before.
GridMetrics GridMetricsWith(std::vector<int> fittedWidths, GridFonts& fonts, double pixelsPerTwip);

}  // namespace ssq
