#include "ui/GridGeometry.h"

#include <algorithm>
#include <cmath>

namespace ssq {

namespace {

// Grows merged rectangles over the fixed cells of one grid.
class MergeFinder {
  public:
    explicit MergeFinder(const ResultGrid& grid)
        : grid_(grid), takenInRowAbove_(static_cast<std::size_t>(grid.cols()), -1) {}

    std::vector<CellRange> Run() {
        for (int row = 0; row < grid_.rows(); ++row) {
            const int end = row < grid_.fixedRows() ? grid_.cols() : FixedCols();
            for (int col = 0; col < end; ++col) {
                if (!Taken(row, col) && !grid_.cell(row, col).empty()) GrowFrom(row, col);
            }
        }
        return std::move(found_);
    }

  private:
    int FixedCols() const { return std::min(grid_.fixedCols(), grid_.cols()); }
    bool Fixed(int row, int col) const {
        return row < grid_.fixedRows() || col < grid_.fixedCols();
    }
    bool Taken(int row, int col) const {
        return takenInRowAbove_[static_cast<std::size_t>(col)] >= row;
    }
    bool Alike(int row, int col, const std::string& text) const {
        return Fixed(row, col) && !Taken(row, col) && grid_.cell(row, col) == text;
    }

    bool NextRowAlike(const CellRange& range, const std::string& text) const {
        if (range.bottom + 1 >= grid_.rows()) return false;
        for (int col = range.left; col <= range.right; ++col) {
            if (!grid_.mergeCol(col) || !Alike(range.bottom + 1, col, text)) return false;
        }
        return true;
    }

    void GrowFrom(int row, int col) {
        const std::string& text = grid_.cell(row, col);
        CellRange range{row, col, row, col};
        if (grid_.mergeRow(row)) {
            while (range.right + 1 < grid_.cols() && Alike(row, range.right + 1, text)) {
                ++range.right;
            }
        }
        while (NextRowAlike(range, text)) ++range.bottom;
        if (range == CellRange{row, col, row, col}) return;
        for (int taken = range.left; taken <= range.right; ++taken) {
            takenInRowAbove_[static_cast<std::size_t>(taken)] = range.bottom;
        }
        found_.push_back(range);
    }

    const ResultGrid& grid_;
    std::vector<int> takenInRowAbove_;  // per column, the last row inside a rectangle
    std::vector<CellRange> found_;
};

int Pixels(int twips, double pixelsPerTwip) {
    return std::max(0, static_cast<int>(std::lround(twips * pixelsPerTwip)));
}

std::vector<int> RowHeights(const ResultGrid& grid, const GridMetrics& metrics) {
    std::vector<int> heights(static_cast<std::size_t>(grid.rows()), metrics.rowHeight);
    for (int row = 0; row < grid.rows(); ++row) {
        if (const auto twips = grid.rowHeight(row)) {
            heights[static_cast<std::size_t>(row)] = Pixels(*twips, metrics.pixelsPerTwip);
        }
    }
    return heights;
}

std::vector<int> ColWidths(const ResultGrid& grid, const GridMetrics& metrics) {
    std::vector<int> widths = metrics.colWidths;
    widths.resize(static_cast<std::size_t>(grid.cols()));
    for (int col = 0; col < grid.cols(); ++col) {
        int& width = widths[static_cast<std::size_t>(col)];
        if (const auto twips = grid.colWidth(col)) width = Pixels(*twips, metrics.pixelsPerTwip);
        if (grid.hidden(col)) width = 0;
    }
    return widths;
}

}  // namespace

GridAxis::GridAxis(const std::vector<int>& sizes, int fixed, Scrolling scrolling)
    : fixed_(std::clamp(fixed, 0, static_cast<int>(sizes.size()))), scrolling_(scrolling) {
    starts_.reserve(sizes.size() + 1);
    for (const int size : sizes) starts_.push_back(starts_.back() + size);
}

int GridAxis::Begin(int index, int scroll) const {
    return starts_[At(index)] - (index < fixed_ ? 0 : scroll);
}

int GridAxis::IndexAtContent(int pixel) const {
    if (pixel < 0 || pixel >= extent()) return -1;
    const auto after = std::upper_bound(starts_.begin(), starts_.end(), pixel);
    return static_cast<int>(after - starts_.begin()) - 1;
}

int GridAxis::IndexAt(int pixel, int scroll) const {
    return IndexAtContent(pixel < fixedExtent() ? pixel : pixel + scroll);
}

GridAxis::Strip GridAxis::Visible(int first, int last, int scroll, int viewExtent) const {
    const int edge = fixedExtent();
    Strip strip{first, last, Begin(first, scroll), End(last, scroll)};
    if (first >= fixed_) strip.begin = std::max(strip.begin, edge);
    if (last >= fixed_) strip.end = std::max(strip.end, edge);
    strip.begin = std::clamp(strip.begin, 0, viewExtent);
    strip.end = std::clamp(strip.end, 0, viewExtent);
    return strip;
}

std::array<GridAxis::Strip, 2> GridAxis::Strips(int scroll, int viewExtent) const {
    std::array<Strip, 2> strips;
    const auto fill = [&](Strip& strip, int begin, int end) {
        strip.begin = begin;
        strip.end = std::max(begin, end);
        if (begin >= end) return;
        strip.first = IndexAt(begin, scroll);
        strip.last = IndexAt(end - 1, scroll);
    };
    const int edge = std::min(fixedExtent(), viewExtent);
    fill(strips[0], 0, edge);
    fill(strips[1], edge, std::min(extent() - scroll, viewExtent));
    return strips;
}

int GridAxis::MaxScroll(int viewExtent) const {
    const int body = extent() - fixedExtent();
    if (body == 0) return 0;
    return SettledUp(std::max(0, body - std::max(0, viewExtent - fixedExtent())));
}

// The scroll from there on where a cell begins, at most the last one's beginning.
int GridAxis::SettledUp(int scroll) const {
    if (scrolling_ == Scrolling::kSmooth) return scroll;
    const auto lastStart = starts_.end() - 2;
    const auto next = std::lower_bound(starts_.begin() + fixed_, lastStart, scroll + fixedExtent());
    return *next - fixedExtent();
}

int GridAxis::Settled(int scroll) const {
    if (scrolling_ == Scrolling::kSmooth || fixed_ >= count()) return scroll;
    const int up = SettledUp(scroll);
    const int index = IndexAtContent(std::clamp(scroll + fixedExtent(), 0, extent() - 1));
    const int down = starts_[At(std::max(index, fixed_))] - fixedExtent();
    return scroll - down < up - scroll ? down : up;
}

int GridAxis::ScrollToShow(int index, int scroll, int viewExtent) const {
    if (index < fixed_ || index >= count()) return scroll;
    const int begin = starts_[At(index)] - fixedExtent();
    const int end = starts_[At(index) + 1] - viewExtent;
    const int nearest = std::min(begin, SettledUp(std::max(scroll, end)));
    return std::clamp(nearest, 0, MaxScroll(viewExtent));
}

int GridAxis::First() const {
    for (int index = fixed_; index < count(); ++index) {
        if (Shown(index)) return index;
    }
    return -1;
}

int GridAxis::Last() const {
    for (int index = count() - 1; index >= fixed_; --index) {
        if (Shown(index)) return index;
    }
    return -1;
}

int GridAxis::Step(int index, int direction, int least) const {
    if (index < least) return First();
    for (int next = index + direction; next >= least && next < count(); next += direction) {
        if (Shown(next)) return next;
    }
    if (Shown(index)) return index;
    return direction < 0 ? First() : Last();
}

int GridAxis::PageFrom(int index, int distance) const {
    const int first = First();
    const int last = Last();
    if (first < 0) return -1;
    const int from = std::clamp(index, first, last);
    const int pixel =
        std::clamp(starts_[At(from)] + distance, starts_[At(first)], starts_[At(last)]);
    const int reached = IndexAtContent(pixel);
    return reached == from ? Step(from, distance < 0 ? -1 : 1, fixed_) : reached;
}

GridGeometry::GridGeometry(const ResultGrid& grid, const GridMetrics& metrics)
    : rows_(RowHeights(grid, metrics), grid.fixedRows(), GridAxis::Scrolling::kWholeCells),
      cols_(ColWidths(grid, metrics), grid.fixedCols(), GridAxis::Scrolling::kSmooth),
      merges_(MergedFixedCells(grid)) {}

CellRange GridGeometry::MergedAround(int row, int col) const {
    for (const CellRange& merge : merges_) {
        if (merge.Contains(row, col)) return merge;
    }
    return {row, col, row, col};
}

PixelRect GridGeometry::CellRect(int row, int col, int scrollX, int scrollY) const {
    return {cols_.Begin(col, scrollX), rows_.Begin(row, scrollY), cols_.size(col), rows_.size(row)};
}

PixelRect GridGeometry::VisibleRect(const CellRange& range, int scrollX, int scrollY, int viewWidth,
                                    int viewHeight) const {
    const auto across = cols_.Visible(range.left, range.right, scrollX, viewWidth);
    const auto down = rows_.Visible(range.top, range.bottom, scrollY, viewHeight);
    return {across.begin, down.begin, across.end - across.begin, down.end - down.begin};
}

std::vector<CellRange> MergedFixedCells(const ResultGrid& grid) {
    return MergeFinder(grid).Run();
}

CellRange SelectedRange(const ResultGrid& grid) {
    if (grid.row() < 0) return {0, 0, -1, -1};
    const auto [top, bottom] = std::minmax({grid.row(), grid.rowSel()});
    const auto [left, right] = std::minmax({grid.col(), grid.colSel()});
    return {top, left, bottom, right};
}

}  // namespace ssq
