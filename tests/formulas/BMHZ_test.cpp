#include "formulas/BMHZ.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(ShiftDraw, ShiftsInTheRing) {
    struct Case {
        const char* source;
        int offset;
        ShiftMode mode;
        const char* target;
        const char* result;
        int hits;
    };
    const Case cases[] = {
        {"05", 5, ShiftMode::kMinus, "33", "33", 1},
        {"03", 5, ShiftMode::kMinus, "03,13", "31", 0},
        {"01", 13, ShiftMode::kMinus, "21,22", "21", 1},
        {"33", 1, ShiftMode::kPlus, "01", "01", 1},
        {"01,02,03,31,32,33", 1, ShiftMode::kBoth, "01,02,30,31,32,33",
         "33,02,01,03,02,04,30,32,31,33,32,01", 10},
        {"05", 5, ShiftMode::kMinus, "00,00,00,00,00,00", "33", 0},
        {"", 5, ShiftMode::kBoth, "01", "", 0},
    };
    for (const Case& c : cases) {
        int hits = 7;  // what the caller has counted so far stays
        EXPECT_EQ(ShiftDraw(c.target, c.source, c.offset, hits, c.mode), c.result) << c.source;
        EXPECT_EQ(hits, 7 + c.hits) << c.source;
        EXPECT_EQ(
            ShiftHits(RedSet::FromList(c.target), RedSet::FromList(c.source), c.offset, c.mode),
            c.hits)
            << c.source;
    }
}

class EdgeTable : public testing::Test {
  protected:
    std::int64_t Number(const std::string& sql) { return database.Run(sql).Int(0); }

    TestDatabase database = TestDatabase::Delivered();
    Session& session = database.session();
};

TEST_F(EdgeTable, HasARowForEachDrawEvenIfTwoRunsMeet) {
    int runs = 0;
    database.host().onPump = [&] {
        if (++runs > 1) return;
        EXPECT_TRUE(EnsureEdgeTable(session));
    };
    ASSERT_TRUE(EnsureEdgeTable(session));
    EXPECT_GT(runs, 0);
    EXPECT_THAT(database.host().Texts(), IsEmpty());
    EXPECT_EQ(Number("select count(*) from bmhz where length(kjhm)=17"),
              Number("select count(*) from cphm where kjqh>2003011"));
}

TEST_F(EdgeTable, GrowsByTheDrawsThatAreMissing) {
    database.Run("delete from cphm where kjqh>2003011");
    EXPECT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select count(*) from bmhz"), 0);
    for (const int issue : {2003012, 2003013, 2004001, 2004002}) {
        database.AddDraw(issue, "2003-04-01", "01,02,03,04,05,06", 7);
        EXPECT_TRUE(EnsureEdgeTable(session));
        database.Run("update bmhz set kjhm='kept' where kjqh<2004001");
    }
    database.Run("delete from bmhz where kjqh in (2003013,2004002)");
    EXPECT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select count(*) from bmhz"), 4);
    EXPECT_EQ(Number("select count(*) from bmhz where kjhm='kept'"), 1);
    EXPECT_EQ(Number("select q1b4 from bmhz where kjqh=2003013"), 2);  // 05 and 06 less 4
    EXPECT_EQ(Number("select q2b4 from bmhz where kjqh=2004002"), 2);  // 05 and 06 less 4
    EXPECT_THAT(database.host().Texts(), IsEmpty());
}

// A key that is checked at the commit stands for a disk that is full for a moment.
TEST_F(EdgeTable, EndsAtAFailedCommitAndIsHealedByTheNextRun) {
    ASSERT_TRUE(CreateEdgeTable(session));
    database.Run("pragma foreign_keys=on");
    database.Run("create table parent(id integer primary key)");
    database.Run("create table child(id integer references parent deferrable initially deferred)");
    database.Run(
        "create trigger fault after insert on bmhz when new.kjqh=2010001 begin "
        "insert into child values(7); end");
    EXPECT_FALSE(EnsureEdgeTable(session));
    EXPECT_THAT(database.host().Texts(), ElementsAre(testing::HasSubstr("FOREIGN KEY")));
    EXPECT_EQ(Number("select count(*) from bmhz where kjqh>=2010001"), 0);
    EXPECT_GT(Number("select count(*) from bmhz"), 0);
    database.Run("drop trigger fault");
    EXPECT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select count(*) from bmhz"),
              Number("select count(*) from cphm where kjqh>2003011"));
}

TEST_F(EdgeTable, StopsWhereDrawsAreMissingOrTheProgramIsClosed) {
    database.Run("delete from cphm where kjqh<2020010");
    EXPECT_FALSE(EnsureEdgeTable(session));
    EXPECT_EQ(Number("select count(*) from bmhz"), 0);
    EXPECT_THAT(database.host().Texts(), ElementsAre("数据不足！"));
    database.host().Stop();
    EXPECT_FALSE(EnsureEdgeTable(session));
    EXPECT_THAT(database.host().Texts(), SizeIs(1));
}

TEST_F(EdgeTable, RenumbersWhatIsOutOfPlaceOnly) {
    database.Run("delete from cphm where kjqh>2003020");
    ASSERT_TRUE(EnsureEdgeTable(session));
    EXPECT_EQ(RenumberEdgeTable(session, "2003015"), 4);
    EXPECT_EQ(Number("select count(*) from bmhz where qid=0"), 5);
    EXPECT_EQ(RenumberEdgeTable(session, "2003020"), 9);
    EXPECT_EQ(Number("select count(*) from bmhz where qid<>kjqh-2003011"), 0);
    const std::int64_t changes = Number("select total_changes()");
    EXPECT_EQ(RenumberEdgeTable(session, "2003020"), 9);
    EXPECT_EQ(Number("select total_changes()"), changes);
    database.Run("drop table bmhz");
    EXPECT_EQ(RenumberEdgeTable(session, "2003020"), 0);
    EXPECT_THAT(database.host().Texts(), SizeIs(1));
}

}  // namespace
}  // namespace ssq
