#include "tools/MDL_zdy_dm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "draws/Draw.h"
#include "support/TestDatabase.h"
#include "tools/FormulaFiles.h"
#include "ui/Run.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Formulas = std::vector<std::string>;

Draw SampleDraw() {
    Draw draw;
    draw.issue = "2009004";
    draw.balls = {3, 9, 15, 20, 28, 33};
    draw.blue = 7;
    return draw;
}

TEST(EvaluateFormulas, ListsResultsByTheRulesOfTheTarget) {
    using enum FormulaTarget;
    const struct {
        Formulas formulas;
        FormulaTarget target;
        const char* list;
    } cases[] = {
        {{"int((a1+a2)/2)", "a7", "3.5", "2-7"}, kRed, "06,07,04,05"},
        {{"a1-3"}, kRed, "10"},                // 00 is written 10
        {{"a12"}, kRed, "32"},                 // digits of a1, then a 2
        {{"aa1"}, kRed, "15"},                 // a3 comes of it, and is named in its turn
        {{"A1+4"}, kRed, "04"},                // an unknown name
        {{"123", "12", "5"}, kRed, "123,05"},  // 12 hides in 123
        {{"kjqh"}, kRed, "2109104"},           // two times 00
        {{"1e20"}, kBlue, "110101010101010101010"},
        {{"a1=3"}, kRed, "01"},
        {{"\"1\"&a7"}, kRed, "17"},
        {{"5", "2+3", "5.4"}, kRed, "05"},
        {{"20"}, kTail, "00"},
        {{"20", "5"}, kTail, "10,05"},
        {{"27", "123", "7"}, kTail, "07,02"},
        {{}, kRed, ""},
    };
    for (const auto& [formulas, target, list] : cases) {
        std::string error;
        EXPECT_EQ(EvaluateFormulas(SampleDraw(), formulas, target, error), list) << list;
        EXPECT_EQ(error, "");
    }
}

TEST(EvaluateFormulas, NamesTheFormulaAndThePlaceOfAnError) {
    std::string error;
    EXPECT_FALSE(EvaluateFormulas(SampleDraw(), {"a7", "a6/(a1-3)"}, FormulaTarget::kRed, error));
    EXPECT_EQ(error, "公式“a6/(a1-3)”代入2009004期的号码后是“33/(3-3)”，第3个字符处除数为零！");
    EXPECT_FALSE(EvaluateFormulas(SampleDraw(), {"\"x\""}, FormulaTarget::kRed, error));
    EXPECT_THAT(error, HasSubstr("结果“x”不是数字"));
}

class FormulaTests : public testing::Test {
  protected:
    void SetUp() override {
        database_.AddDraw(2009001, "2009-01-01", "01,02,03,04,05,06", 9);
        database_.AddDraw(2009002, "2009-01-04", "01,12,13,14,20,30", 10);
        database_.AddDraw(2009003, "2009-01-06", "02,12,23,24,25,26", 3);
    }

    std::optional<std::string> Test(const Formulas& formulas, FormulaTarget target,
                                    const PeriodRange& range = {"2009001", "2009003"}) {
        EXPECT_TRUE(SaveFormulaList(session(), formulas));
        ssq::Run run(database_.host());
        auto report = TestFormulas(session(), {range, "1", "6", target}, run);
        if (!report) return std::nullopt;
        remark_ = report->remark;
        return report->lines;
    }

    Session& session() { return database_.session(); }

    TestDatabase database_;
    std::string remark_;
};

// From 2009001 the formulas give 01 and 12, of which 2009002 shows both; from that 01 and 12 again
// (01,12: 12), of which 2009003 shows one. The first draw is judged by nothing.
TEST_F(FormulaTests, ReportsTheDrawsHitAndThePredictionForTheNext) {
    EXPECT_EQ(Test({"a1", "12"}, FormulaTarget::kRed),
              "本期红球胆码：范围>=1<=6\r\n"
              "2009004:   02,12\r\n"
              "正确率:66.66666666666666%,---\r\n"
              "共正确:2期.共错误:1期，以下是正确的号码和期号:\r\n\r\n"
              "2009002: 01,12,13,14,20,30      中2      01,12\r\n"
              "2009003: 02,12,23,24,25,26      中1      01,12\r\n"
              "\r\n\r\n以下是错误的期号和号码：\r\n\r\n");
    // Two reds come out with 1 - C(31,6)/C(33,6) = 33.52 %, on two draws of three.
    EXPECT_THAT(remark_, HasSubstr("正确率 22.35%"));
    EXPECT_THAT(*Test({"a7+1"}, FormulaTarget::kBlue),
                testing::AllOf(HasSubstr("2009002: 10      中1      10\r\n"),
                               HasSubstr("号码：\r\n\r\n2009003: 03      中0      11\r\n")));
    EXPECT_THAT(*Test({"a6-4"}, FormulaTarget::kTail),
                testing::AllOf(HasSubstr("2009002: 01,02,03,04,00,00      中1      02\r\n"),
                               HasSubstr("2009003: 02,02,03,04,05,06      中1      06\r\n")));
    EXPECT_THAT(*Test({"a1"}, FormulaTarget::kRed, {"2009002", "2009002"}),
                HasSubstr("正确率:0%,---\r\n共正确:0期.共错误:1期"));
    EXPECT_THAT(database_.host().boxes, IsEmpty());
}

TEST_F(FormulaTests, EndsAtWhatCannotBeComputed) {
    EXPECT_FALSE(Test({"1/(a1-2)"}, FormulaTarget::kRed));
    EXPECT_FALSE(Test({"1"}, FormulaTarget::kRed, {"2010001", "2010009"}));
    EXPECT_FALSE(Test({}, FormulaTarget::kRed));  // quietly
    EXPECT_THAT(database_.host().Texts(),
                ElementsAre(HasSubstr("2009003期"), "所选期号范围内没有开奖数据！"));
}

TEST_F(FormulaTests, KeepsTheListInTheStore) {
    ASSERT_TRUE(SaveFormulaList(session(), {"a1+1", " a2 "}));
    EXPECT_EQ(database_.Run("Select gstext from gsjs where gsname='dm'").Text(0),
              "a1+1{tornelka} a2 {tornelka}{tornelka}");
    EXPECT_FALSE(SaveFormulaList(session(), {"a1'+1"}));
    EXPECT_EQ(database_.host().boxes.size(), 1U);
    EXPECT_THAT(*LoadFormulaList(session()), ElementsAre("a1+1", " a2 "));
}

TEST_F(FormulaTests, SavesFilesThatTheSystemsEditorReads) {
    ASSERT_TRUE(SaveZDYgs(session(), {"a1", "len(\"红\")"}, "红球", "正确率:83.213%,---"));
    std::string file = database_.host().boxes.back().text;
    ASSERT_THAT(file, testing::StartsWith("文件已经保存到" + database_.folder().string() + "/"));
    file = file.substr(std::string("文件已经保存到").size());
    EXPECT_THAT(std::filesystem::path(file).filename().string(),
                testing::MatchesRegex("[0-9]{6}-..\\...\\...红球胆码\\{正确率83.21\\}公式.dmgs"));
    std::ifstream stream(file, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}),
              "a1\r\nlen(\"\xBA\xEC\")\r\n\r\n");
    EXPECT_THAT(*ReadZDYgs(database_.host(), file), ElementsAre("a1", "len(\"红\")"));

    EXPECT_FALSE(SaveZDYgs(session(), {"a1", "len(\"😀\")"}, "蓝球", ""));
    EXPECT_THAT(database_.host().boxes.back().text, HasSubstr("😀"));
}

TEST(ReadZDYgs, TakesTheTextFilesOfEitherEncodingAndNothingElse) {
    const TempFolder folder;
    TestHost host;
    const auto read = [&](const std::string& bytes) {
        return ReadZDYgs(host, folder.Write("f.dmgs", bytes));
    };
    EXPECT_THAT(*read("\xEF\xBB\xBF a1\r\n\r\n  \r\n\"红\"\n"), ElementsAre(" a1", "\"红\""));
    EXPECT_THAT(*read("\"\xBA\xEC\"\na2"), ElementsAre("\"红\"", "a2"));
    EXPECT_THAT(*read(""), IsEmpty());
    EXPECT_THAT(host.boxes, IsEmpty());
    EXPECT_FALSE(read(std::string("a\0b", 3)));
    EXPECT_FALSE(read("\xFF\xFF\xFF"));
    EXPECT_FALSE(read(std::string(2 << 20, '1')));
    EXPECT_FALSE(ReadZDYgs(host, folder.path()));
    EXPECT_FALSE(ReadZDYgs(host, folder.path() / "none"));
    EXPECT_EQ(host.boxes.size(), 5U);
}

}  // namespace
}  // namespace ssq
