#include "ui/ResultGrid.h"

#include <algorithm>

#include "base/numbers.h"

namespace ssq {

namespace {

std::optional<int> Find(const std::map<int, int>& sizes, int index) {
    const auto found = sizes.find(index);
    return found == sizes.end() ? std::nullopt : std::optional(found->second);
}

template <typename Set>
void EraseFrom(Set& set, int first) {
    set.erase(set.lower_bound(first), set.end());
}

}  // namespace

ResultGrid::ResultGrid(int rows, int cols, int fixedRows, int fixedCols)
    : cols_(std::max(cols, 0)), fixedRows_(fixedRows), fixedCols_(fixedCols) {
    SetRows(rows);
}

void ResultGrid::SetRows(int rows) {
    rows_ = std::max(rows, 0);
    const auto size = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_);
    DropTexts(size);
    textOf_.resize(size);
    styleOf_.resize(size);
    EraseFrom(rowHeights_, rows_);
    EraseFrom(mergeRows_, rows_);
    KeepSelectionInside();
}

int ResultGrid::AddRow() {
    SetRows(rows_ + 1);
    return rows_ - 1;
}

const std::string& ResultGrid::cell(int row, int col) const {
    static const std::string kEmpty;
    const std::uint32_t place = Inside(row, col) ? textOf_[At(row, col)] : 0;
    return place > 0 ? texts_[place - 1] : kEmpty;
}

void ResultGrid::SetCell(int row, int col, std::string text) {
    if (!Inside(row, col)) return;
    std::uint32_t& place = textOf_[At(row, col)];
    if (place == 0 && text.empty()) return;
    if (place > 0) {
        texts_[place - 1] = std::move(text);
    } else if (!freeTexts_.empty()) {
        place = freeTexts_.back();
        freeTexts_.pop_back();
        texts_[place - 1] = std::move(text);
    } else {
        texts_.push_back(std::move(text));
        place = static_cast<std::uint32_t>(texts_.size());
    }
}

// The texts of the cells from there on make room for others.
void ResultGrid::DropTexts(std::size_t from) {
    for (std::size_t cell = from; cell < textOf_.size(); ++cell) {
        if (textOf_[cell] == 0) continue;
        texts_[textOf_[cell] - 1].clear();
        freeTexts_.push_back(textOf_[cell]);
    }
}

double ResultGrid::CellVal(int row, int col) const {
    return Val(cell(row, col));
}

const CellStyle& ResultGrid::style(int row, int col) const {
    return styles_[Inside(row, col) ? styleOf_[At(row, col)] : 0];
}

void ResultGrid::SetBack(int row, int col, Rgb colour) {
    CellStyle changed = style(row, col);
    changed.back = colour;
    SetStyle(row, col, std::move(changed));
}

void ResultGrid::SetFore(int row, int col, Rgb colour) {
    CellStyle changed = style(row, col);
    changed.fore = colour;
    SetStyle(row, col, std::move(changed));
}

void ResultGrid::SetBold(int row, int col, bool bold) {
    CellStyle changed = style(row, col);
    changed.bold = bold;
    SetStyle(row, col, std::move(changed));
}

void ResultGrid::SetFont(int row, int col, const std::string& name, int points) {
    CellStyle changed = style(row, col);
    changed.fontName = name;
    changed.fontSize = points;
    SetStyle(row, col, std::move(changed));
}

void ResultGrid::SetFontSize(int row, int col, int points) {
    SetFont(row, col, style(row, col).fontName, points);
}

void ResultGrid::SetMark(int row, int col, Rgb colour) {
    CellStyle changed = style(row, col);
    changed.mark = colour;
    SetStyle(row, col, std::move(changed));
}

std::optional<int> ResultGrid::rowHeight(int row) const {
    return Find(rowHeights_, row);
}

void ResultGrid::SetRowHeight(int row, int twips) {
    if (InsideRow(row)) rowHeights_[row] = twips;
}

void ResultGrid::SetAllRowHeights(int twips) {
    for (int row = 0; row < rows_; ++row) rowHeights_[row] = twips;
}

std::optional<int> ResultGrid::colWidth(int col) const {
    return Find(colWidths_, col);
}

void ResultGrid::SetColWidth(int col, int twips) {
    if (InsideCol(col)) colWidths_[col] = twips;
}

void ResultGrid::SetColWidths(int first, int last, int twips) {
    for (int col = first; col <= last; ++col) SetColWidth(col, twips);
}

void ResultGrid::SetEvenCols(int first, int last) {
    if (first >= 0 && first <= last && last < cols_) evenCols_.push_back({first, last});
}

Align ResultGrid::alignment(int col) const {
    const auto found = alignments_.find(col);
    return found == alignments_.end() ? Align::kGeneral : found->second;
}

void ResultGrid::SetAlignment(int col, Align alignment) {
    if (InsideCol(col)) alignments_[col] = alignment;
}

void ResultGrid::SetAllAlignments(Align alignment) {
    for (int col = 0; col < cols_; ++col) alignments_[col] = alignment;
}

void ResultGrid::SetHidden(int col, bool hidden) {
    if (hidden && InsideCol(col)) {
        hiddenCols_.insert(col);
    } else {
        hiddenCols_.erase(col);
    }
}

void ResultGrid::SetNames(int first, int last) {
    for (int col = std::max(first, 0); col <= last && col < cols_; ++col) nameCols_.insert(col);
}

void ResultGrid::SetMergeRow(int row) {
    if (InsideRow(row)) mergeRows_.insert(row);
}

void ResultGrid::SetMergeCol(int col) {
    if (InsideCol(col)) mergeCols_.insert(col);
}

void ResultGrid::SetMergeAllCols() {
    for (int col = 0; col < cols_; ++col) mergeCols_.insert(col);
}

const std::string& ResultGrid::tip(int col) const {
    static const std::string kNone;
    const auto found = tips_.find(col);
    return found == tips_.end() ? kNone : found->second;
}

void ResultGrid::SetTip(int col, std::string html) {
    if (InsideCol(col)) tips_[col] = std::move(html);
}

ResultGrid ResultGrid::Reordered(std::span<const int> rows) const {
    ResultGrid result = *this;
    result.rowHeights_.clear();
    for (int row = 0; row < rows_; ++row) {
        const int from = rows[static_cast<std::size_t>(row)];
        std::copy_n(textOf_.begin() + static_cast<std::ptrdiff_t>(At(from, 0)), cols_,
                    result.textOf_.begin() + static_cast<std::ptrdiff_t>(At(row, 0)));
        std::copy_n(styleOf_.begin() + static_cast<std::ptrdiff_t>(At(from, 0)), cols_,
                    result.styleOf_.begin() + static_cast<std::ptrdiff_t>(At(row, 0)));
        if (const auto height = rowHeight(from)) result.rowHeights_[row] = *height;
    }
    return result;
}

void ResultGrid::Select(int row, int col, int rowSel, int colSel) {
    if (!Inside(row, col) || !Inside(rowSel, colSel)) return;
    row_ = row;
    col_ = col;
    rowSel_ = rowSel;
    colSel_ = colSel;
}

std::size_t ResultGrid::At(int row, int col) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
           static_cast<std::size_t>(col);
}

void ResultGrid::SetStyle(int row, int col, CellStyle style) {
    if (!Inside(row, col)) return;
    const auto next = static_cast<std::uint16_t>(styles_.size());
    const auto [entry, isNew] = styleIndex_.try_emplace(std::move(style), next);
    if (isNew) styles_.push_back(entry->first);
    styleOf_[At(row, col)] = entry->second;
}

void ResultGrid::KeepSelectionInside() {
    if (rows_ <= fixedRows_ || cols_ <= fixedCols_) {
        row_ = col_ = rowSel_ = colSel_ = -1;
    } else if (!Inside(row_, col_) || !Inside(rowSel_, colSel_)) {
        row_ = rowSel_ = fixedRows_;
        col_ = colSel_ = fixedCols_;
    }
}

}  // namespace ssq
