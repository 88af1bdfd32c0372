#include "ui/xls/GridWorksheet.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "ui/GridGeometry.h"
#include "ui/GridLook.h"
#include "ui/ResultGrid.h"
#include "ui/xls/RecordWriter.h"
#include "ui/xls/StyleTable.h"
#include "ui/xls/Workbook.h"

namespace ssq {

namespace {

using xls::Record;

// What a BIFF8 sheet can hold.
constexpr int kMaxRows = 65536;
constexpr int kMaxCols = 256;

// The value of a text that the sheet would show just as it is. A double keeps 15 digits.
std::optional<double> PlainNumber(const std::string& text) {
    constexpr std::ptrdiff_t kMaxDigits = 15;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (std::count_if(text.begin(), text.end(), isDigit) > kMaxDigits) return std::nullopt;
    const auto isPart = [isDigit](char c) { return isDigit(c) || c == '-' || c == '.'; };
    if (!std::all_of(text.begin(), text.end(), isPart)) return std::nullopt;
    const auto value = ParseNumber(text);
    return value && NumberText(*value) == text ? value : std::nullopt;
}

// Whether the texts of a column's body are amounts: plain numbers, with a dash where there is none.
bool HoldsNumbers(const ResultGrid& grid, int col) {
    if (grid.names(col)) return false;
    for (int row = grid.fixedRows(); row < grid.rows(); ++row) {
        const std::string& text = grid.cell(row, col);
        if (!text.empty() && text != "-" && !PlainNumber(text)) return false;
    }
    return true;
}

// The general form of the sheet changes to an exponent behind this many digits.
bool NeedsWholeNumberForm(const std::string& text) {
    constexpr std::size_t kGeneralDigits = 11;
    return text.size() > kGeneralDigits && text.find('.') == std::string::npos;
}

constexpr int kTwipsPerPixel = 15;  // at 96 dpi
constexpr int kDefaultRowHeight = 300;

// The width in twips that shows the longest unmerged text of a column.
int FittedWidth(const ResultGrid& grid, const std::vector<CellRange>& merges, int col) {
    constexpr int kPadding = 2;  // digits
    constexpr int kNarrowest = 4;
    constexpr int kWidest = 66;
    std::set<int> mergedRows;
    for (const CellRange& merge : merges) {
        if (col < merge.left || col > merge.right) continue;
        for (int row = merge.top; row <= merge.bottom; ++row) mergedRows.insert(row);
    }
    int digits = 0;
    for (int row = 0; row < grid.rows(); ++row) {
        if (mergedRows.contains(row)) continue;
        digits = std::max(digits, static_cast<int>(DisplayWidth(grid.cell(row, col))));
    }
    return std::clamp(digits + kPadding, kNarrowest, kWidest) * xls::kSheetDigitPixels *
           kTwipsPerPixel;
}

// No text has more UTF-16 units than UTF-8 bytes, so most need no counting.
bool FitsCell(const std::string& text) {
    return text.size() <= xls::kMaxCellText || xls::ToUtf16(text).size() <= xls::kMaxCellText;
}

// Why the grid cannot be a sheet; empty when it can.
std::string Obstacle(const ResultGrid& grid) {
    if (grid.rows() > kMaxRows || grid.cols() > kMaxCols) {
        return "表格有" + std::to_string(grid.rows()) + "行" + std::to_string(grid.cols()) +
               "列，超过了工作表的上限65536行256列。";
    }
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            if (FitsCell(grid.cell(row, col))) continue;
            return "第" + std::to_string(row + 1) + "行第" + std::to_string(col + 1) +
                   "列的文字超过了工作表的上限32767个字符。";
        }
    }
    return {};
}

class SheetWriter {
  public:
    explicit SheetWriter(const ResultGrid& grid) : grid_(grid), merges_(MergedFixedCells(grid)) {
        for (int col = 0; col < grid.cols(); ++col)
            holdsNumbers_.push_back(HoldsNumbers(grid, col));
    }

    std::optional<std::string> File() {
        xls::BeginSubstream(writer_, xls::Substream::kSheet);
        WriteColumns();
        WriteDimensions();
        // Readers expect the rows in blocks, each block's cells behind its rows.
        constexpr int kBlock = 32;
        for (int first = 0; first < grid_.rows(); first += kBlock) {
            const int end = std::min(first + kBlock, grid_.rows());
            for (int row = first; row < end; ++row) WriteRow(row);
            for (int row = first; row < end; ++row) WriteCells(row);
        }
        WriteWindow();
        WriteMerges();
        writer_.Begin(Record::kEof);
        return WorkbookFile(styles_, strings_, writer_.TakeBytes());
    }

  private:
    void WriteColumns() {
        for (int col = 0; col < grid_.cols(); ++col) {
            const auto own = grid_.colWidth(col);
            WriteColumn(col, own ? *own : FittedWidth(grid_, merges_, col));
        }
    }

    void WriteColumn(int col, int twips) {
        constexpr int kUnitsPerDigit = 256;
        constexpr int kMaxDigits = 255;
        constexpr std::uint32_t kHidden = 1;
        constexpr int kTwipsPerDigit = kTwipsPerPixel * xls::kSheetDigitPixels;
        const int shown = std::clamp(twips, 0, kMaxDigits * kTwipsPerDigit);
        const auto place = static_cast<std::uint32_t>(col);
        writer_.Begin(Record::kColInfo).U16(place).U16(place);
        writer_.U16(static_cast<std::uint32_t>(shown * kUnitsPerDigit / kTwipsPerDigit));
        writer_.U16(xls::kPlainFormat).U16(grid_.hidden(col) || shown == 0 ? kHidden : 0).U16(0);
    }

    void WriteDimensions() {
        writer_.Begin(Record::kDimensions).U32(0).U32(static_cast<std::uint32_t>(grid_.rows()));
        writer_.U16(0).U16(static_cast<std::uint32_t>(grid_.cols())).U16(0);
    }

    void WriteRow(int row) {
        constexpr int kMaxHeight = 8191;
        constexpr std::uint32_t kAlways = 0x0100;
        constexpr std::uint32_t kOwnHeight = 0x0040;
        constexpr std::uint32_t kHidden = 0x0020;
        const int twips =
            std::clamp(grid_.rowHeight(row).value_or(kDefaultRowHeight), 0, kMaxHeight);
        writer_.Begin(Record::kRow).U16(static_cast<std::uint32_t>(row)).U16(0);
        writer_.U16(static_cast<std::uint32_t>(grid_.cols()));
        writer_.U16(static_cast<std::uint32_t>(twips)).U16(0).U16(0);
        writer_.U16(kAlways | kOwnHeight | (twips == 0 ? kHidden : 0)).U16(xls::kPlainFormat);
    }

    void WriteCells(int row) {
        for (int col = 0; col < grid_.cols(); ++col) WriteCell(row, col);
    }

    void WriteCell(int row, int col) {
        const std::string& text = grid_.cell(row, col);
        const bool mayBeNumber =
            row >= grid_.fixedRows() && holdsNumbers_[static_cast<std::size_t>(col)];
        const auto number = mayBeNumber ? PlainNumber(text) : std::nullopt;
        const bool wholeNumber = number && NeedsWholeNumberForm(text);
        const std::uint32_t format = styles_.Index(Format(row, col, wholeNumber));
        const auto begin = [&](Record type) -> xls::RecordWriter& {
            return writer_.Begin(type)
                .U16(static_cast<std::uint32_t>(row))
                .U16(static_cast<std::uint32_t>(col))
                .U16(format);
        };
        if (text.empty()) {
            begin(Record::kBlank);
        } else if (number) {
            begin(Record::kNumber).Double(*number);
        } else {
            begin(Record::kLabelSst).U32(strings_.Index(text));
        }
    }

    xls::CellFormat Format(int row, int col, bool wholeNumber) const {
        xls::CellFormat format{grid_.style(row, col), grid_.alignment(col), wholeNumber, {}};
        const bool fixed = row < grid_.fixedRows() || col < grid_.fixedCols();
        if (!format.style.back) {
            format.style.back = fixed ? std::optional(kFixedBack) : grid_.gridBack;
        }
        const auto& back = format.style.back;
        if (!fixed && !format.style.fore && back && IsDark(*back)) format.style.fore = kInkOnDark;
        format.lines = fixed ? kFixedLine : grid_.gridLines.value_or(kGridLine);
        return format;
    }

    // The window on the sheet, frozen at the fixed rows and columns.
    void WriteWindow() {
        constexpr std::uint32_t kGridHeadersZeros = 0x0036;
        constexpr std::uint32_t kOutlineSelectedShown = 0x0680;
        constexpr std::uint32_t kFrozen = 0x0108;
        constexpr std::uint32_t kAutomaticLines = 64;
        const auto rows = static_cast<std::uint32_t>(grid_.fixedRows());
        const auto cols = static_cast<std::uint32_t>(grid_.fixedCols());
        const std::uint32_t frozen = rows > 0 || cols > 0 ? kFrozen : 0;
        writer_.Begin(Record::kWindow2).U16(kGridHeadersZeros | kOutlineSelectedShown | frozen);
        writer_.U16(0).U16(0).U16(kAutomaticLines).U16(0).U16(0).U16(0).U32(0);
        if (frozen == 0) return;
        // Panes count 3 top left, 2 bottom left, 1 top right, 0 bottom right.
        const std::uint32_t active = 3U - (cols > 0 ? 2U : 0U) - (rows > 0 ? 1U : 0U);
        writer_.Begin(Record::kPane).U16(cols).U16(rows).U16(rows).U16(cols).U8(active).U8(0);
        writer_.Begin(Record::kSelection).U8(active).U16(rows).U16(cols).U16(0).U16(1);
        writer_.U16(rows).U16(rows).U8(cols).U8(cols);
    }

    void WriteMerges() {
        constexpr std::size_t kPerRecord = 1027;
        for (std::size_t first = 0; first < merges_.size(); first += kPerRecord) {
            const std::size_t end = std::min(first + kPerRecord, merges_.size());
            writer_.Begin(Record::kMergedCells).U16(static_cast<std::uint32_t>(end - first));
            for (std::size_t i = first; i < end; ++i) {
                for (const int edge :
                     {merges_[i].top, merges_[i].bottom, merges_[i].left, merges_[i].right}) {
                    writer_.U16(static_cast<std::uint32_t>(edge));
                }
            }
        }
    }

    const ResultGrid& grid_;
    std::vector<CellRange> merges_;
    std::vector<bool> holdsNumbers_;  // per column
    xls::StyleTable styles_;
    xls::StringTable strings_;
    xls::RecordWriter writer_;
};

}  // namespace

bool WriteWorksheet(const ResultGrid& grid, const std::filesystem::path& file,
                    std::string& errorText) {
    errorText = Obstacle(grid);
    if (!errorText.empty()) return false;
    const auto bytes = SheetWriter(grid).File();
    if (!bytes) {
        errorText = "内存不足。";
        return false;
    }
    return ReplaceFile(file, *bytes, errorText);
}

}  // namespace ssq
