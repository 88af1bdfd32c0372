// The fonts of a grid's cells and the widths that its columns need for their texts.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <map>
#include <string>
#include <tuple>

#include "ui/GridGeometry.h"
#include "ui/ResultGrid.h"

namespace ssq {

// Blank pixels between a text and the left and right edge of its cell.
inline constexpr int kCellPadding = 3;

class GridFonts {
  public:
    struct Face {
        QFont font;
        QFontMetrics metrics;
    };

    // `base` is the font of cells that name none.
    explicit GridFonts(const QFont& base) : base_(base) {}

    const Face& For(const CellStyle& style);

    // The same in the size that lets the text fit into `width` by `height` pixels, but not below
    // three quarters of its own.
    const Face& Fitting(const CellStyle& style, const QString& text, int width, int height);

  private:
    using Key = std::tuple<std::string, int, bool, int>;

    const Face& Scaled(const CellStyle& style, int percent);

    QFont base_;
    std::map<Key, Face> faces_;
};

// A cell's text on one line.
QString CellText(const std::string& text);

// The width in pixels, lines and padding included, that shows the header and the longest text of
// a column, within 24 and 400 pixels; 67 (1000 twips at 96 dpi) when the column is empty. The
// longest text is found by counting characters, Chinese ones twice, so that only a few are
// measured.
int FittedColWidth(const ResultGrid& grid, int col, GridFonts& fonts);

}  // namespace ssq
