// Where the cells of a ResultGrid lie on screen: the fixed rows and columns stay at the top and
// left, the body scrolls beneath them. All lengths are logical pixels; no toolkit.
#pragma once

#include <array>
#include <vector>

#include "ui/ResultGrid.h"

namespace ssq {

// A rectangle of cells, all four edges included.
struct CellRange {
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;

    bool operator==(const CellRange&) const = default;
    bool Contains(int row, int col) const {
        return row >= top && row <= bottom && col >= left && col <= right;
    }
};

struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const PixelRect&) const = default;
    bool empty() const { return width <= 0 || height <= 0; }
};

// The cells of one direction: rows from top to bottom or columns from left to right.
class GridAxis {
  public:
    // A run of neighbouring cells in view: the cells first..last, inside the pixels [begin, end).
    // Empty when last < first.
    struct Strip {
        int first = 0;
        int last = -1;
        int begin = 0;
        int end = 0;
    };

    // Whether scrolling ends anywhere or only where a body cell begins.
    enum class Scrolling { kSmooth, kWholeCells };

    GridAxis() = default;
    // `sizes` in pixels, 0 for a hidden cell; the first `fixed` of them do not scroll.
    GridAxis(const std::vector<int>& sizes, int fixed, Scrolling scrolling);

    int count() const { return static_cast<int>(starts_.size()) - 1; }
    int fixed() const { return fixed_; }
    int size(int index) const { return starts_[At(index) + 1] - starts_[At(index)]; }
    int extent() const { return starts_.back(); }
    int fixedExtent() const { return starts_[At(fixed_)]; }

    // The pixel where a cell begins in a view scrolled by `scroll`; a body cell can lie beneath
    // the fixed ones or outside the view.
    int Begin(int index, int scroll) const;
    int End(int index, int scroll) const { return Begin(index, scroll) + size(index); }

    // The cell at a pixel of the view; -1 outside the grid.
    int IndexAt(int pixel, int scroll) const;

    // The pixels where the cells first..last can be seen, as one piece even when it crosses the
    // line between the fixed cells and the body.
    Strip Visible(int first, int last, int scroll, int viewExtent) const;

    // The fixed cells in view and the body cells in view.
    std::array<Strip, 2> Strips(int scroll, int viewExtent) const;

    // The scroll that shows the last cell whole.
    int MaxScroll(int viewExtent) const;

    // The scroll to show when `scroll` is asked for: itself, or where the nearest cell begins.
    int Settled(int scroll) const;

    // The scroll nearest to `scroll` that brings a body cell into view.
    int ScrollToShow(int index, int scroll, int viewExtent) const;

    // The cell from `least` on that a key reaches from `index`: hidden cells are passed over, the
    // end of the grid stops. -1 when no body cell shows.
    int Step(int index, int direction, int least) const;
    // The first and last body cell that show, -1 without one.
    int First() const;
    int Last() const;

    // The body cell `distance` pixels further on, at least one cell away where there is one.
    int PageFrom(int index, int distance) const;

  private:
    static std::size_t At(int index) { return static_cast<std::size_t>(index); }
    bool Shown(int index) const { return index >= 0 && index < count() && size(index) > 0; }
    int IndexAtContent(int pixel) const;
    int SettledUp(int scroll) const;

    std::vector<int> starts_{0};  // prefix sums, one more than there are cells
    int fixed_ = 0;
    Scrolling scrolling_ = Scrolling::kSmooth;
};

// What the geometry takes from the screen and its fonts.
struct GridMetrics {
    double pixelsPerTwip = 1.0 / 15;  // 96 dpi
    int rowHeight = 20;               // pixels, of rows without a height
    std::vector<int> colWidths;       // pixels, used for columns without a width
};

class GridGeometry {
  public:
    GridGeometry() = default;
    GridGeometry(const ResultGrid& grid, const GridMetrics& metrics);

    const GridAxis& rows() const { return rows_; }
    const GridAxis& cols() const { return cols_; }

    // The merged cells: rectangles of more than one cell that do not overlap.
    const std::vector<CellRange>& merges() const { return merges_; }
    // The merged rectangle around a cell, or the cell alone.
    CellRange MergedAround(int row, int col) const;

    PixelRect CellRect(int row, int col, int scrollX, int scrollY) const;
    // The part of a range that can be seen in a view of that size.
    PixelRect VisibleRect(const CellRange& range, int scrollX, int scrollY, int viewWidth,
                          int viewHeight) const;

  private:
    GridAxis rows_;
    GridAxis cols_;
    std::vector<CellRange> merges_;
};

// Adjacent fixed cells of equal, non-empty text in the rows and columns that merge, as rectangles
// that do not overlap. A rectangle first grows along its row, then downwards as long as the whole
// next row of it is alike.
std::vector<CellRange> MergedFixedCells(const ResultGrid& grid);

// The grid's selection as a range; nothing is selected when bottom < top.
CellRange SelectedRange(const ResultGrid& grid);

}  // namespace ssq
