#include "kill/BMHZ.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "app/Public_var.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FormulaNumbering, CountsTheOffsetsWithinTheDraws) {
    EXPECT_EQ(FormulaIndex({1, 1}), 0);
    EXPECT_EQ(FormulaIndex({1, 13}), 12);
    EXPECT_EQ(FormulaIndex({2, 1}), 13);
    EXPECT_EQ(FormulaKey(FormulaAt(129)), "Q10B13");
    EXPECT_EQ(FormulaColumns().substr(0, 10), "Q1B1,Q1B2,");
}

struct ShiftCase {
    const char* source;
    int offset;
    ShiftMode mode;
    const char* target;
    const char* result;
    int hits;
};

TEST(ShiftDraw, ShiftsInTheRing) {
    const ShiftCase cases[] = {
        {"05", 5, ShiftMode::kMinus, "33", "33", 1},
        {"03", 5, ShiftMode::kMinus, "03,13", "31", 0},
        {"01", 13, ShiftMode::kMinus, "21,22", "21", 1},
        {"33", 1, ShiftMode::kPlus, "01", "01", 1},
        {"20", 13, ShiftMode::kPlus, "02", "33", 0},
        {"33,04,01", 0, ShiftMode::kMinus, "04", "33,04,01", 1},
        {"20,05", 5, ShiftMode::kBoth, "10,15,25,33", "15,25,33,10", 4},
        {"01,02,03,31,32,33", 1, ShiftMode::kBoth, "01,02,30,31,32,33",
         "33,02,01,03,02,04,30,32,31,33,32,01", 10},
        {"05", 5, ShiftMode::kMinus, "00,00,00,00,00,00", "33", 0},
        {"", 5, ShiftMode::kBoth, "01", "", 0},
    };
    for (const ShiftCase& c : cases) {
        int hits = 7;  // what the caller has counted so far stays
        EXPECT_EQ(ShiftDraw(c.target, c.source, c.offset, hits, c.mode), c.result) << c.source;
        EXPECT_EQ(hits, 7 + c.hits) << c.source;
    }
}

class EdgeTable : public testing::Test {
  protected:
    std::int64_t Number(const std::string& sql) { return database.Run(sql).Int(0); }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
};

TEST_F(EdgeTable, TextAndMaskFormsAgreeOverTheHistory) {
    Recordset rows = database.Run("select kjhm from cphm order by kjqh asc");
    ASSERT_GT(rows.recordcount(), 3000);
    std::string source = rows.Text(0);
    for (rows.MoveNext(); !rows.eof(); rows.MoveNext()) {
        const std::string target = rows.Text(0);
        const RedSet targetSet = RedSet::FromList(target);
        const RedSet sourceSet = RedSet::FromList(source);
        for (int offset = 0; offset < RedSet::kLargest; ++offset) {
            for (const auto mode : {ShiftMode::kBoth, ShiftMode::kMinus, ShiftMode::kPlus}) {
                int hits = 0;
                ShiftDraw(target, source, offset, hits, mode);
                ASSERT_EQ(hits, ShiftHits(targetSet, sourceSet, offset, mode))
                    << source << " by " << offset << " on " << target;
            }
        }
        source = target;
    }
}

TEST_F(EdgeTable, HoldsTheHitsOfEveryFormulaForEachDraw) {
    ASSERT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select min(kjqh) from bmhz"), 2003012);
    EXPECT_EQ(Number("select count(*) from bmhz"),
              Number("select count(*) from cphm where kjqh>2003011"));

    Recordset draws = database.Run("select kjqh,kjhm from cphm order by kjqh asc");
    std::vector<std::string> texts;
    for (; !draws.eof(); draws.MoveNext()) texts.push_back(draws.Text("kjhm"));
    Recordset rows = database.Run("select * from bmhz order by kjqh asc");
    const std::size_t first = texts.size() - static_cast<std::size_t>(rows.recordcount());
    for (std::size_t draw = first; draw < texts.size(); ++draw, rows.MoveNext()) {
        ASSERT_EQ(rows.Text("kjhm"), texts[draw]);
        if (draw % 5 != 0) continue;
        for (int index = 0; index < kFormulaCount; ++index) {
            const ShiftFormula formula = FormulaAt(index);
            int hits = 0;
            ShiftDraw(texts[draw], texts[draw - static_cast<std::size_t>(formula.q)], formula.b,
                      hits, ShiftMode::kMinus);
            ASSERT_EQ(rows.Int(FormulaKey(formula)), hits) << texts[draw];
        }
    }
}

TEST_F(EdgeTable, GrowsByTheDrawsThatAreMissing) {
    database.Run("delete from cphm where kjqh>2003011");
    EXPECT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select count(*) from bmhz"), 0);

    const auto add = [&](int issue) {
        database.AddDraw(issue, "2003-04-01", "01,02,03,04,05,06", 7);
    };
    add(2003012);
    EXPECT_TRUE(EnsureEdgeTable(session));
    database.Run("update bmhz set kjhm='kept' where kjqh=2003012");
    add(2004001);
    add(2004002);
    EXPECT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select count(*) from bmhz"), 3);
    EXPECT_EQ(database.Run("select kjhm from bmhz where kjqh=2003012").Text(0), "kept");
    EXPECT_EQ(Number("select q2b4 from bmhz where kjqh=2004002"), 2);  // 05 and 06 less 4
    EXPECT_THAT(database.host().Texts(), IsEmpty());
}

TEST_F(EdgeTable, StopsWhereTenEarlierDrawsAreMissing) {
    database.Run("delete from cphm where kjqh<2020010");
    EXPECT_FALSE(EnsureEdgeTable(session));
    EXPECT_THAT(database.host().Texts(), ElementsAre("数据不足！"));
    EXPECT_EQ(Number("select count(*) from bmhz"), 0);
}

TEST_F(EdgeTable, EndsQuietlyWhenTheProgramIsClosed) {
    database.host().Stop();
    EXPECT_FALSE(EnsureEdgeTable(session));
    EXPECT_THAT(database.host().Texts(), IsEmpty());
}

TEST_F(EdgeTable, SurvivesAnotherRunInItsMiddle) {
    int runs = 0;
    database.host().onPump = [&] {
        if (++runs > 1) return;
        EXPECT_TRUE(EnsureEdgeTable(session));
    };
    EXPECT_TRUE(EnsureEdgeTable(session));
    EXPECT_GT(runs, 0);
    EXPECT_THAT(database.host().Texts(), IsEmpty());
    EXPECT_EQ(Number("select count(*) from bmhz"),
              Number("select count(*) from cphm where kjqh>2003011"));
}

TEST_F(EdgeTable, RenumbersWhatIsOutOfPlaceOnly) {
    database.Run("delete from cphm where kjqh>2003020");
    ASSERT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select count(*) from bmhz where qid=0"), 9);
    EXPECT_EQ(RenumberEdgeTable(session, "2003015"), 4);
    EXPECT_EQ(Number("select count(*) from bmhz where qid=0"), 5);
    EXPECT_EQ(RenumberEdgeTable(session, "2003020"), 9);
    EXPECT_EQ(Number("select count(*) from bmhz where qid<>kjqh-2003011"), 0);
    const std::int64_t changes = Number("select total_changes()");
    EXPECT_EQ(RenumberEdgeTable(session, "2003020"), 9);
    EXPECT_EQ(Number("select total_changes()"), changes);
    database.Run("drop table bmhz");
    EXPECT_EQ(RenumberEdgeTable(session, "2003020"), 0);
    EXPECT_EQ(database.host().Texts().size(), 1U);
}

}  // namespace
}  // namespace ssq
