#include <gtest/gtest.h>

#include <freexl.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <set>
#include <variant>

#include "support/TempFolder.h"
#include "support/paths.h"
#include "ui/ResultGrid.h"
#include "ui/xls/GridWorksheet.h"

namespace ssq {
namespace {

namespace fs = std::filesystem;

// Nothing, a number or a text.
using SheetCell = std::variant<std::monostate, double, std::string>;

// A worksheet file as an independent reader sees it.
class Sheet {
  public:
    explicit Sheet(const fs::path& file) {
        const void* handle = nullptr;
        opened_ = freexl_open(file.c_str(), &handle) == FREEXL_OK &&
                  freexl_select_active_worksheet(handle, 0) == FREEXL_OK;
        handle_.reset(handle);
    }

    bool opened() const { return opened_; }

    SheetCell cell(int row, int col) const {
        FreeXL_CellValue value{};
        const int result = freexl_get_cell_value(handle_.get(), static_cast<unsigned>(row),
                                                 static_cast<unsigned short>(col), &value);
        if (result != FREEXL_OK) return "error " + std::to_string(result);
        if (value.type == FREEXL_CELL_NULL) return {};
        if (value.type == FREEXL_CELL_INT) return static_cast<double>(value.value.int_value);
        if (value.type == FREEXL_CELL_DOUBLE) return value.value.double_value;
        return std::string(value.value.text_value);
    }

  private:
    struct Closer {
        using pointer = const void*;
        void operator()(const void* handle) const { freexl_close(handle); }
    };

    std::unique_ptr<const void, Closer> handle_;
    bool opened_ = false;
};

class Worksheet : public testing::Test {
  protected:
    Sheet Written(const ResultGrid& grid) const {
        std::string error;
        EXPECT_TRUE(WriteWorksheet(grid, file_, error)) << error;
        return Sheet(file_);
    }

    const TempFolder folder_;
    const fs::path file_ = folder_.path() / "表.xls";
};

TEST_F(Worksheet, EachColumnHoldsNumbersOrTexts) {
    std::vector<std::vector<std::string>> columns{
        {"期号", "2013151", "2013152"},  // column 0 names the rows
        {"1", "0", "-5", "12.5", "0.05", "2013151", "123456789012345", "-", ""},  // numbers
        {"2", "7", "03"},  // a text makes texts of all
        {"3", "7", "8"},   // balls by declaration
    };
    constexpr int kNumbers = 1;
    for (const char* text :
         {"1234567890123456", "1.50", ".5", "5.", "+7", "-0", " 7", "1e5", "1,234", "01,02,33",
          "1-2", "=1+1", "50%", "café", "a\nb", "\xF0\x9F\x8E\xB1"}) {
        columns.push_back({"t", text});
    }
    ResultGrid grid(9, static_cast<int>(columns.size()), 1, 0);
    grid.SetNames(3, 3);
    for (int col = 0; col < grid.cols(); ++col) {
        for (int row = 0; row < static_cast<int>(columns[col].size()); ++row) {
            grid.SetCell(row, col, columns[col][row]);
        }
    }
    const Sheet sheet = Written(grid);
    ASSERT_TRUE(sheet.opened());
    for (int col = 0; col < grid.cols(); ++col) {
        for (int row = 0; row < grid.rows(); ++row) {
            const std::string& text = grid.cell(row, col);
            const bool number = col == kNumbers && row > 0 && text != "-";
            const SheetCell expected = text.empty() ? SheetCell()
                                       : number     ? SheetCell(std::stod(text))
                                                    : SheetCell(text);
            EXPECT_TRUE(sheet.cell(row, col) == expected) << text << " in column " << col;
        }
    }
    grid.SetCell(1, 4, "\xFF坏");
    EXPECT_TRUE(Written(grid).cell(1, 4) == SheetCell("\xEF\xBF\xBD坏"));
}

std::string Repeated(const std::string& part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
}

TEST_F(Worksheet, TextsSurviveEveryPlaceWhereARecordEnds) {
    // The first text moves the end of the first record byte by byte through the second one's
    // header and through texts of one byte, two bytes and two units to a character.
    constexpr int kFirstRecord = 8224 - 8 - 3;
    for (const std::string& text :
         {std::string("ab"), std::string("红球"), Repeated("\xF0\x9F\x8E\xB1", 9)}) {
        for (int left = 0; left <= 24; ++left) {
            ResultGrid grid(1, 4, 0, 0);
            grid.SetCell(0, 0, Repeated("x", kFirstRecord - left));
            grid.SetCell(0, 1, text);
            // As far as FreeXL reads: it loses texts that reach into a third record.
            grid.SetCell(0, 2, "蓝" + Repeated("\xF0\x9F\x8E\xB1", 2000));
            grid.SetCell(0, 3, "尾");
            const Sheet sheet = Written(grid);
            ASSERT_TRUE(sheet.opened()) << left;
            for (int col = 0; col < grid.cols(); ++col) {
                ASSERT_TRUE(sheet.cell(0, col) == SheetCell(grid.cell(0, col)))
                    << text << " at " << left << ", column " << col;
            }
        }
    }
}

TEST_F(Worksheet, LooksAsTheGridDoes) {
    if (std::system("/usr/bin/python3 -c 'import xlrd' 2>/dev/null") != 0) {
        GTEST_SKIP() << "python3-xlrd is not installed";
    }
    ResultGrid grid(5, 5, 2, 1);
    grid.SetCell(0, 1, "红球");
    grid.SetCell(0, 2, "红球");
    grid.SetMergeRow(0);
    grid.SetBack(2, 1, {0xBB, 0xDF, 0xE6});
    grid.SetFore(2, 2, {0xFF, 0, 0});
    grid.SetBack(4, 1, {0x99, 0x33, 0x66});  // dark enough for light texts
    grid.SetBold(2, 2);
    grid.SetFont(2, 3, "黑体", 14);
    grid.SetCell(3, 1, "123456789012");
    grid.SetAlignment(1, Align::kCentre);
    grid.SetAlignment(2, Align::kLeft);
    grid.SetColWidth(1, 900);
    grid.SetColWidth(3, 900);
    grid.SetColWidth(4, 900);
    grid.SetHidden(4, true);
    grid.SetRowHeight(2, 450);
    grid.gridBack = Rgb{51, 153, 102};
    EXPECT_TRUE(Written(grid).opened());

    const fs::path list = folder_.path() / "facts";
    const std::string command = "PYTHONIOENCODING=utf-8 /usr/bin/python3 " +
                                (SourceFolder() / "tests/ui/sheet_styles.py").string() + " '" +
                                file_.string() + "' > '" + list.string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::ifstream stream(list);
    std::set<std::string> facts;
    for (std::string line; std::getline(stream, line);) facts.insert(line);
    for (const char* fact : {
             "sheets 1",
             "merged 0 1 0 2",
             "frozen 1 2 1",
             "height 2 450",
             "cell 0 0 #E2EAE7 none plain 9 宋体 general 1 General",
             "cell 2 1 #BBDFE6 none plain 9 宋体 centre 1 General",
             "cell 2 2 #339966 #FF0000 bold 9 宋体 left 1 General",
             "cell 2 3 #339966 none plain 14 黑体 general 1 General",
             "cell 3 1 #339966 none plain 9 宋体 centre 1 0",
             "cell 4 1 #993366 #FAEEF4 plain 9 宋体 centre 1 General",
             "cell 4 4 #339966 none plain 9 宋体 general 1 General",
             // 60 pixels are ten digits, in 1/256 of a digit.
             "width 1 2560 0",
             "width 3 2560 0",
             "width 4 2560 1",
         }) {
        EXPECT_TRUE(facts.contains(fact)) << fact;
    }
}

TEST_F(Worksheet, RefusesWhatNoSheetHolds) {
    ResultGrid longText(2, 2, 0, 0);
    longText.SetCell(1, 0, Repeated("x", 32768));
    for (const auto& [grid, reason] : std::vector<std::pair<ResultGrid, std::string>>{
             {ResultGrid(65537, 1, 1, 0), "表格有65537行1列，超过了工作表的上限65536行256列。"},
             {ResultGrid(1, 257, 1, 0), "表格有1行257列，超过了工作表的上限65536行256列。"},
             {longText, "第2行第1列的文字超过了工作表的上限32767个字符。"},
         }) {
        std::string error;
        EXPECT_FALSE(WriteWorksheet(grid, file_, error));
        EXPECT_EQ(error, reason);
    }
    EXPECT_TRUE(fs::is_empty(folder_.path()));
    EXPECT_TRUE(Written(ResultGrid(65536, 1, 1, 0)).opened());
    EXPECT_TRUE(Written(ResultGrid(1, 256, 1, 0)).opened());
    EXPECT_TRUE(Written(ResultGrid()).opened());
}

}  // namespace
}  // namespace ssq
