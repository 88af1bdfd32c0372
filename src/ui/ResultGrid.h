// The abstract table that every analysis fills: plain data, shown by ui/qt/GridView and read by
// the copy commands and the export.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace ssq {

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    auto operator<=>(const Rgb&) const = default;
};

// What a cell shows besides its text; the defaults are the grid's own look.
struct CellStyle {
    std::optional<Rgb> back;
    std::optional<Rgb> fore;
    bool bold = false;
    std::string fontName;
    int fontSize = 0;         // points
    std::optional<Rgb> mark;  // a disc of this colour behind the text

    auto operator<=>(const CellStyle&) const = default;
};

// Alignment of a column, by the grid's numbers.
enum class Align { kGeneral = 9, kLeft = 1, kCentre = 4 };

// Rows and columns count from 0, the fixed ones included. Sizes are in twips (1/1440 inch); a row
// or column without one takes the view's default. Reading outside the grid gives an empty text
// and the default style; writing there does nothing.
class ResultGrid {
  public:
    ResultGrid() = default;
    ResultGrid(int rows, int cols, int fixedRows, int fixedCols);

    int rows() const { return rows_; }
    int cols() const { return cols_; }
    int fixedRows() const { return fixedRows_; }
    int fixedCols() const { return fixedCols_; }

    // New rows are empty; rows cut off are gone with their styles.
    void SetRows(int rows);
    // Adds an empty row at the bottom and returns its index.
    int AddRow();

    const std::string& cell(int row, int col) const;
    void SetCell(int row, int col, std::string text);
    double CellVal(int row, int col) const;  // the text's leading number

    const CellStyle& style(int row, int col) const;
    void SetBack(int row, int col, Rgb colour);
    void SetFore(int row, int col, Rgb colour);
    void SetBold(int row, int col, bool bold = true);
    void SetFont(int row, int col, const std::string& name, int points);
    void SetFontSize(int row, int col, int points);
    // A disc behind the cell's text, shown while there is a text.
    void SetMark(int row, int col, Rgb colour);

    std::optional<int> rowHeight(int row) const;
    void SetRowHeight(int row, int twips);
    void SetAllRowHeights(int twips);  // of the rows there are now

    std::optional<int> colWidth(int col) const;
    void SetColWidth(int col, int twips);
    void SetColWidths(int first, int last, int twips);

    // Columns without a width that shall all be as wide as the widest of them needs.
    struct ColumnRun {
        int first;
        int last;
    };
    void SetEvenCols(int first, int last);
    const std::vector<ColumnRun>& evenCols() const { return evenCols_; }

    Align alignment(int col) const;
    void SetAlignment(int col, Align alignment);
    void SetAllAlignments(Align alignment);

    bool hidden(int col) const { return hiddenCols_.contains(col); }
    void SetHidden(int col, bool hidden);

    // Columns whose texts name something, such as balls, and are no amounts even where all of them
    // look like numbers. Fixed columns and column 0 always are.
    bool names(int col) const { return col == 0 || col < fixedCols_ || nameCols_.contains(col); }
    void SetNames(int first, int last);

    // Adjacent fixed cells of equal text in the row or column show as one cell.
    bool mergeRow(int row) const { return mergeRows_.contains(row); }
    bool mergeCol(int col) const { return mergeCols_.contains(col); }
    void SetMergeRow(int row);
    void SetMergeCol(int col);
    void SetMergeAllCols();

    // What a heading means, as rich text that the pointer raises over the column's lowest heading.
    const std::string& tip(int col) const;
    void SetTip(int col, std::string html);

    // The same grid with its rows in another order: row i is row rows[i] of this one. What is kept
    // by row goes with it; the selection stays where it is.
    ResultGrid Reordered(std::span<const int> rows) const;

    // The first of the rows behind the draws: the recommendation and what sums up. A heavy line
    // stands above it, and no sorting moves it or the rows below.
    std::optional<int> footRow;

    // Colours of the whole grid where a cell has none of its own; the fixed cells keep the
    // view's look.
    std::optional<Rgb> gridBack;
    std::optional<Rgb> gridLines;

    // Cells outside the fixed ones with just this text show it faintly, such as the 0 of counts.
    std::string paleText;

    // The selection: anchor (row, col) and the other corner; -1 while there is nothing to select.
    int row() const { return row_; }
    int col() const { return col_; }
    int rowSel() const { return rowSel_; }
    int colSel() const { return colSel_; }
    void Select(int row, int col, int rowSel, int colSel);

  private:
    bool InsideRow(int row) const { return row >= 0 && row < rows_; }
    bool InsideCol(int col) const { return col >= 0 && col < cols_; }
    bool Inside(int row, int col) const { return InsideRow(row) && InsideCol(col); }
    std::size_t At(int row, int col) const;
    void DropTexts(std::size_t from);
    void SetStyle(int row, int col, CellStyle style);
    void KeepSelectionInside();

    int rows_ = 0;
    int cols_ = 0;
    int fixedRows_ = 0;
    int fixedCols_ = 0;
    int row_ = -1;
    int col_ = -1;
    int rowSel_ = -1;
    int colSel_ = -1;
    // An empty cell costs six bytes. Cells lie row after row.
    std::vector<std::uint32_t> textOf_;  // place in texts_ counted from 1, 0 for no text
    std::deque<std::string> texts_;      // a reference to one lives until its cell changes
    std::vector<std::uint32_t> freeTexts_;
    std::vector<std::uint16_t> styleOf_;  // index into styles_
    std::vector<CellStyle> styles_{CellStyle{}};
    std::map<CellStyle, std::uint16_t> styleIndex_{{CellStyle{}, 0}};
    std::map<int, int> rowHeights_;
    std::map<int, int> colWidths_;
    std::vector<ColumnRun> evenCols_;
    std::map<int, Align> alignments_;
    std::map<int, std::string> tips_;
    std::set<int> hiddenCols_;
    std::set<int> nameCols_;
    std::set<int> mergeRows_;
    std::set<int> mergeCols_;
};

}  // namespace ssq
