#include <gtest/gtest.h>

#include <freexl.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "ui/GridWorksheet.h"
#include "ui/ResultGrid.h"

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
        opened_ = freexl_open(file.c_str(), &handle) == FREEXL_OK;
        handle_.reset(handle);
        opened_ = opened_ &&
                  freexl_get_info(handle, FREEXL_BIFF_SHEET_COUNT, &sheets) == FREEXL_OK &&
                  freexl_select_active_worksheet(handle, 0) == FREEXL_OK &&
                  freexl_worksheet_dimensions(handle, &rows, &cols) == FREEXL_OK;
    }

    bool opened() const { return opened_; }

    SheetCell cell(int row, int col) const {
        FreeXL_CellValue value{};
        const int result = freexl_get_cell_value(handle_.get(), static_cast<unsigned>(row),
                                                 static_cast<unsigned short>(col), &value);
        if (result != FREEXL_OK) return "error " + std::to_string(result);
        switch (value.type) {
            case FREEXL_CELL_NULL:
                return {};
            case FREEXL_CELL_INT:
                return static_cast<double>(value.value.int_value);
            case FREEXL_CELL_DOUBLE:
                return value.value.double_value;
            case FREEXL_CELL_TEXT:
            case FREEXL_CELL_SST_TEXT:
                return std::string(value.value.text_value);
            default:
                return "type " + std::to_string(value.type);
        }
    }

    unsigned sheets = 0;
    unsigned rows = 0;
    unsigned short cols = 0;

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
    void SetUp() override {
        folder_ = fs::path(testing::TempDir()) /
                  testing::UnitTest::GetInstance()->current_test_info()->name();
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        file_ = folder_ / "表.xls";
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

    void Write(const ResultGrid& grid) const {
        std::string error;
        ASSERT_TRUE(WriteWorksheet(grid, file_, error)) << error;
    }

    // What the style reader says of the file, one fact to a line; empty without that reader.
    std::set<std::string> Facts() const {
        const std::string command =
            "PYTHONIOENCODING=utf-8 /usr/bin/python3 " SSQ_SHEET_STYLES_SCRIPT " '" +
            file_.string() + "'";
        const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
        std::set<std::string> facts;
        std::string line;
        for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) {
            if (c != '\n') {
                line += static_cast<char>(c);
            } else {
                facts.insert(line);
                line.clear();
            }
        }
        return facts;
    }

    fs::path folder_;
    fs::path file_;
};

bool HasStyleReader() {
    return std::system("/usr/bin/python3 -c 'import xlrd' 2>/dev/null") == 0;
}

struct TextCase {
    const char* text;
    SheetCell expected;
};

TEST_F(Worksheet, KeepsTextsWhoseFormMattersAndMakesNumbersOfTheRest) {
    using namespace std::string_literals;
    const std::vector<TextCase> cases = {
        {"期号", "期号"s},
        {"", {}},
        {"0", 0.0},
        {"7", 7.0},
        {"-5", -5.0},
        {"12.5", 12.5},
        {"0.05", 0.05},
        {"2013151", 2013151.0},
        {"123456789012345", 123456789012345.0},
        {"1234567890123456", "1234567890123456"s},
        {"03", "03"s},
        {"03001", "03001"s},
        {"1.50", "1.50"s},
        {".5", ".5"s},
        {"5.", "5."s},
        {"+7", "+7"s},
        {"-0", "-0"s},
        {" 7", " 7"s},
        {"1e5", "1e5"s},
        {"-", "-"s},
        {"1,234", "1,234"s},
        {"01,02,33", "01,02,33"s},
        {"1-2", "1-2"s},
        {"=1+1", "=1+1"s},
        {"50%", "50%"s},
        {"café", "café"s},
        {"a\nb", "a\nb"s},
        {"\xF0\x9F\x8E\xB1", "\xF0\x9F\x8E\xB1"s},
        {"\xFF坏", "\xEF\xBF\xBD坏"s},
    };
    ResultGrid grid(static_cast<int>(cases.size()), 3, 1, 1);
    for (int row = 0; row < grid.rows(); ++row) grid.SetCell(row, 1, cases[row].text);
    ASSERT_NO_FATAL_FAILURE(Write(grid));

    const Sheet sheet(file_);
    ASSERT_TRUE(sheet.opened());
    EXPECT_EQ(sheet.sheets, 1U);
    EXPECT_EQ(sheet.rows, cases.size());
    EXPECT_EQ(sheet.cols, 3);
    for (int row = 0; row < grid.rows(); ++row) {
        EXPECT_TRUE(sheet.cell(row, 1) == cases[row].expected) << cases[row].text;
        EXPECT_TRUE(sheet.cell(row, 0) == SheetCell()) << row;
        EXPECT_TRUE(sheet.cell(row, 2) == SheetCell()) << row;
    }
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
    const std::vector<std::string> second = {"ab", "红球", Repeated("\xF0\x9F\x8E\xB1", 9)};
    for (const std::string& text : second) {
        for (int left = 0; left <= 24; ++left) {
            ResultGrid grid(1, 4, 0, 0);
            grid.SetCell(0, 0, std::string(static_cast<std::size_t>(kFirstRecord - left), 'x'));
            grid.SetCell(0, 1, text);
            // As far as FreeXL reads: it loses texts that reach into a third record.
            grid.SetCell(0, 2, "蓝" + Repeated("\xF0\x9F\x8E\xB1", 2000));
            grid.SetCell(0, 3, "尾");
            ASSERT_NO_FATAL_FAILURE(Write(grid));
            const Sheet sheet(file_);
            ASSERT_TRUE(sheet.opened()) << left;
            for (int col = 0; col < grid.cols(); ++col) {
                ASSERT_TRUE(sheet.cell(0, col) == SheetCell(grid.cell(0, col)))
                    << text << " at " << left << ", column " << col;
            }
        }
    }
}

TEST_F(Worksheet, TextsMayFillSeveralRecords) {
    if (!HasStyleReader()) GTEST_SKIP() << "python3-xlrd is not installed";
    ResultGrid grid(1, 3, 0, 0);
    grid.SetCell(0, 0, std::string(32767, 'x'));
    grid.SetCell(0, 1, "蓝" + Repeated("\xF0\x9F\x8E\xB1", 16383));
    grid.SetCell(0, 2, Repeated("红球", 10000));
    ASSERT_NO_FATAL_FAILURE(Write(grid));
    const std::set<std::string> facts = Facts();
    for (int col = 0; col < grid.cols(); ++col) {
        EXPECT_TRUE(facts.contains("text 0 " + std::to_string(col) + " " + grid.cell(0, col)))
            << col;
    }
}

TEST_F(Worksheet, ALongHistoryComesBackCellByCell) {
    ResultGrid grid(3500, 70, 2, 3);
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            const int kind = (row * 7 + col * 13) % 5;
            const int value = row * 70 + col;
            if (kind == 0) grid.SetCell(row, col, std::to_string(value) + ".25");
            if (kind == 1) grid.SetCell(row, col, "0" + std::to_string(value));
            if (kind == 2) grid.SetCell(row, col, "第" + std::to_string(value) + "期");
            if (kind == 3) grid.SetCell(row, col, std::to_string(value));
        }
    }
    ASSERT_NO_FATAL_FAILURE(Write(grid));
    const Sheet sheet(file_);
    ASSERT_TRUE(sheet.opened());
    int wrong = 0;
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            const std::string& text = grid.cell(row, col);
            SheetCell expected;
            const int kind = (row * 7 + col * 13) % 5;
            if (kind == 0) expected = row * 70 + col + 0.25;
            if (kind == 3) expected = static_cast<double>(row * 70 + col);
            if (kind == 1 || kind == 2) expected = text;
            if (!(sheet.cell(row, col) == expected)) ++wrong;
        }
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(Worksheet, LooksAsTheGridDoes) {
    if (!HasStyleReader()) GTEST_SKIP() << "python3-xlrd is not installed";
    ResultGrid grid(5, 5, 2, 1);
    grid.SetCell(0, 1, "红球");
    grid.SetCell(0, 2, "红球");
    grid.SetMergeRow(0);
    grid.SetBack(2, 1, {0xBB, 0xDF, 0xE6});
    grid.SetFore(2, 2, {0xFF, 0, 0});
    grid.SetBold(2, 2);
    grid.SetFont(2, 3, "黑体", 14);
    grid.SetCell(3, 1, "123456789012");
    grid.SetCell(3, 2, "15");
    grid.SetAlignment(1, Align::kCentre);
    grid.SetAlignment(2, Align::kLeft);
    grid.SetColWidth(1, 900);
    grid.SetHidden(4, true);
    grid.SetRowHeight(2, 450);
    grid.gridBack = Rgb{51, 153, 102};
    ASSERT_NO_FATAL_FAILURE(Write(grid));

    const std::set<std::string> facts = Facts();
    for (const char* fact : {
             "sheets 1", "merged 0 1 0 2", "frozen 1 2 1",
             "cell 2 1 #BBDFE6 none plain 9 宋体 centre 1 General",
             "cell 2 2 #339966 #FF0000 bold 9 宋体 left 1 General",
             "cell 2 3 #339966 none plain 14 黑体 general 1 General",
             "cell 3 1 #339966 none plain 9 宋体 centre 1 0",
             "cell 3 2 #339966 none plain 9 宋体 left 1 General",
             "cell 4 4 #339966 none plain 9 宋体 general 1 General", "height 2 450",
             "width 1 2560 0",  // 60 pixels are ten digits, in 1/256 of a digit
         }) {
        EXPECT_TRUE(facts.contains(fact)) << fact;
    }
    const auto startsWith = [&facts](const std::string& start) {
        const auto found = facts.lower_bound(start);
        return found != facts.end() && found->starts_with(start) ? *found : std::string();
    };
    EXPECT_TRUE(startsWith("width 4 ").ends_with(" 1"));
    EXPECT_TRUE(startsWith("width 3 ").ends_with(" 0"));
    EXPECT_FALSE(startsWith("cell 0 0 #").starts_with("cell 0 0 #339966"));
}

TEST_F(Worksheet, MoreLooksThanTheFileHoldsBecomeTheNearest) {
    if (!HasStyleReader()) GTEST_SKIP() << "python3-xlrd is not installed";
    constexpr int kColours = 60;
    ResultGrid grid(100, kColours, 0, 0);
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            grid.SetCell(row, col, "T" + std::to_string(row));
            grid.SetBack(row, col, {static_cast<std::uint8_t>(col * 4), 0, 0});
            grid.SetFontSize(row, col, 8 + row);
        }
    }
    grid.SetBack(0, kColours - 1, {0, 0, 1});  // closest to the black of column 0
    ASSERT_NO_FATAL_FAILURE(Write(grid));
    const std::set<std::string> facts = Facts();
    EXPECT_TRUE(facts.contains("cell 0 10 #280000 none plain 8 宋体 general 1 General"));
    EXPECT_TRUE(facts.contains("cell 0 59 #000000 none plain 8 宋体 general 1 General"));
    EXPECT_TRUE(facts.contains("cell 20 1 #040000 none plain 28 宋体 general 1 General"));
    const Sheet sheet(file_);
    ASSERT_TRUE(sheet.opened());
    EXPECT_TRUE(sheet.cell(99, 59) == SheetCell("T99"));
}

TEST_F(Worksheet, HoldsMoreMergesThanARecord) {
    if (!HasStyleReader()) GTEST_SKIP() << "python3-xlrd is not installed";
    constexpr int kMerges = 1500;
    ResultGrid grid(kMerges * 2, 2, 0, 1);
    for (int row = 0; row < grid.rows(); ++row)
        grid.SetCell(row, 0, "第" + std::to_string(row / 2));
    grid.SetMergeCol(0);
    ASSERT_NO_FATAL_FAILURE(Write(grid));
    const std::set<std::string> facts = Facts();
    int missing = 0;
    for (int i = 0; i < kMerges; ++i) {
        const std::string rows = std::to_string(2 * i) + " 0 " + std::to_string(2 * i + 1);
        if (!facts.contains("merged " + rows + " 0")) ++missing;
    }
    EXPECT_EQ(missing, 0);
}

TEST_F(Worksheet, RefusesWhatNoSheetHolds) {
    ResultGrid longText(2, 2, 0, 0);
    longText.SetCell(1, 0, std::string(32768, 'x'));
    const std::vector<std::pair<ResultGrid, std::string>> cases = {
        {ResultGrid(65537, 1, 1, 0), "表格有65537行1列，超过了工作表的上限65536行256列。"},
        {ResultGrid(1, 257, 1, 0), "表格有1行257列，超过了工作表的上限65536行256列。"},
        {longText, "第2行第1列的文字超过了工作表的上限32767个字符。"},
    };
    for (const auto& [grid, reason] : cases) {
        std::string error;
        EXPECT_FALSE(WriteWorksheet(grid, file_, error));
        EXPECT_EQ(error, reason);
    }
    EXPECT_EQ(FilesInFolder(), 0U);
    ASSERT_NO_FATAL_FAILURE(Write(ResultGrid(65536, 1, 1, 0)));
    ASSERT_NO_FATAL_FAILURE(Write(ResultGrid(1, 256, 1, 0)));
    ASSERT_NO_FATAL_FAILURE(Write(ResultGrid()));
    EXPECT_TRUE(Sheet(file_).opened());
}

}  // namespace
}  // namespace ssq
