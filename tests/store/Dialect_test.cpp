#include "store/Dialect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "draws/queries.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string Translate(std::string_view sql) {
    return TranslateStatement(sql, [](std::string_view name) { return name == "t"; });
}

TEST(Dialect, TranslatesByTokens) {
    const std::pair<const char*, const char*> cases[] = {
        {"select top 3 * from v order by 1 desc", "select   * from v order by 1 desc limit 3"},
        {"select a from t where b=? and c>?", "select a from t where b=?1 and c>?2"},
        {"select top 1 a from (select TOP 2 a from v);",
         "select   a from (select   a from v limit 2) limit 1;"},
        {"select a from t order by b desc -- newest",
         "select a from t order by b desc,rowid -- newest"},
        {"select a from t order by b limit 5", "select a from t order by b,rowid limit 5"},
        {"int(mid(k,5,3))  mod 2=0 and a MOD(b) =1", "int(mid(k,5,3))  % 2=0 and a %(b) =1"},
    };
    for (const auto& [sql, expected] : cases) EXPECT_EQ(Translate(sql), expected);
    for (const char* kept : {
             "select limit from t order m",
             "select a from t x , u order by a",
             "select a from t inner join u on 1 order by a",
             "select a from u except select a from t order by a",
             "select a,count(a) from t group by a order by count(a)",
             "select 'top 3 a mod b', \"select top 1\", [top 2] from v where x='it''s mod 2'",
             "select top, mod from v where mod(a,2)=1",
             "select a /* select top 1 ' */ from v",
             "select 'open",
             "select",
         }) {
        EXPECT_EQ(Translate(kept), kept);
    }
}

class DialectInUse : public testing::Test {
  protected:
    std::vector<std::string> Column(const std::string& sql) {
        std::vector<std::string> texts;
        Recordset rows = database.Run(sql);
        for (; !rows.eof(); rows.MoveNext()) texts.push_back(rows.Text(0));
        return texts;
    }
    std::string ErrorOf(const std::string& sql) {
        std::string errorText;
        Recordset rows;
        EXPECT_FALSE(database.session().connection.OpenQuery(sql, errorText, rows)) << sql;
        EXPECT_EQ(rows.recordcount(), 0);
        return errorText;
    }

    TestDatabase database;
};

TEST_F(DialectInUse, KeepsInsertionOrderAmongTiesAndCountsThemIntoTheTop) {
    for (const char* row : {"'b',50", "'c',60", "'a',50", "'e',null", "'d',50", "'f',40"}) {
        database.Run("insert into trate(gs,rate) values(" + std::string(row) + ")");
    }
    database.Run("create view v as select gs as g,rate as r from trate");
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"select gs from trate order by rate desc", {"c", "b", "a", "d", "f", "e"}},
        {"Select top 3 * from TRATE order by rate desc", {"c", "b", "a", "d"}},
        {"select top 1 gs from trate order by rate", {"e"}},
        {"select top 9 gs from trate order by rate", {"e", "f", "b", "a", "d", "c"}},
        {"select top 2 gs from trate order by rate desc,gs", {"c", "a"}},
        {"select top 1 count(*) from v where r<=50 group by r order by r desc", {"3"}},
        {"select top 2 gs as x from trate order by x desc", {"f", "e"}},
        {"select distinct top 2 rate from trate order by rate desc", {"60", "50"}},
        {"select top 2 rate from trate group by rate order by count(*)", {"", "40", "60"}},
        {"select gs from trate where rate in (select top 3 rate from trate where gs<>'' "
         "order by rate desc -- the best\n) and gs<>'' order by gs",
         {"a", "b", "c", "d"}},
        {"select top 1 a.gs from trate a,trate b where a.rate=b.rate order by a.rate", {"f"}},
    };
    for (const char* index : {"select 1", "create index byRate on trate(rate)"}) {
        database.Run(index);
        for (const auto& [sql, expected] : cases) EXPECT_EQ(Column(sql), expected) << sql;
    }
    database.Run("insert into rtoc(colvalue) select top 3 rate from trate order by rate desc");
    EXPECT_THAT(Column("select colvalue from rtoc"), ElementsAre("60", "50", "50", "50"));
}

TEST_F(DialectInUse, RunsTheFunctionsAndOperators) {
    database.AddDraw(2003001, "2003-02-23", "10,11,12,13,26,28", 11);
    database.AddDraw(2003002, "2003-02-27", "04,09,19,20,21,26", 12);
    database.Run("update cphm set kjDate='2003-2-7' where kjqh=2003002");
    const std::pair<const char*, const char*> cases[] = {
        {"mid(kjqh,5,3)='002'", "2003002"},
        {"int(mid(kjqh,5,3)) mod 2=1 and  kjqh>=2003001", "2003001"},
        {"day(kjdate)=7", "2003002"},
        {"int(-a1/4.0)=-3", "2003001"},
        {"mid('红球号码',2,2)='球号' and int('3.9')=3 and a7=11", "2003001"},
        {"day('2003-02-30') is null and mid(cqsx,1,2) is null and a7=12", "2003002"},
    };
    for (const auto& [condition, issue] : cases) {
        EXPECT_THAT(Column("Select kjqh from cphm where " + std::string(condition)),
                    ElementsAre(issue))
            << condition;
    }
}

TEST_F(DialectInUse, RunsOneStatementAtATime) {
    EXPECT_THAT(Column("  \r\n select 1 ; -- done\n /* and out */ "), ElementsAre("1"));
    EXPECT_EQ(database.Run("update cphm set qid=1 where kjqh=7").FieldCount(), 0);
    EXPECT_THAT(ErrorOf("delete from vqs; delete from gsjs"), HasSubstr("多余"));
    EXPECT_THAT(ErrorOf("delete from vqs;;"), HasSubstr("多余"));
    EXPECT_THAT(ErrorOf(std::string("delete from vqs\0where 1=0", 25)), HasSubstr("多余"));
    EXPECT_THAT(Column("select count(*) from vqs"), ElementsAre("2"));
    EXPECT_NE(ErrorOf(" -- nothing"), "");
    EXPECT_NE(ErrorOf("insert into trate(gs,rate) values(select gs1 from xxjl where "), "");
    EXPECT_THAT(ErrorOf("Select count(*) from BMHZ"), HasSubstr("BMHZ"));
    EXPECT_FALSE(TableExists(database.session(), "BMHZ"));
    EXPECT_TRUE(TableExists(database.session(), "TDS"));
    EXPECT_THAT(database.host().boxes, ElementsAre());
}

TEST_F(DialectInUse, BindsValuesToMarks) {
    Session& session = database.session();
    for (int run = 0; run < 2; ++run) {
        EXPECT_TRUE(ExecuteOrTell(session, "insert into trate(gs,rate) values(?,?)",
                                  {"it's; -- ?", run + 0.5}));
    }
    Recordset rows;
    const std::string sql = "select top 1 * from trate where gs=? and rate>? order by gs";
    EXPECT_TRUE(QueryOrTell(session, sql, {"it's; -- ?", 0}, rows));
    EXPECT_EQ(rows.recordcount(), 2);
    // A kept statement follows a change of its table.
    database.Run("alter table trate add column more integer default 7");
    EXPECT_TRUE(QueryOrTell(session, sql, {"it's; -- ?", 1}, rows));
    EXPECT_EQ(rows.recordcount(), 1);
    EXPECT_EQ(rows.Int("more"), 7);
    EXPECT_TRUE(QueryOrTell(session, "select ?", {std::monostate()}, rows));
    EXPECT_TRUE(rows.IsNull(0));
    EXPECT_THAT(ErrorOf("select * from trate where gs=?"), HasSubstr("参数"));
    EXPECT_THAT(database.host().boxes, ElementsAre());
}

TEST_F(DialectInUse, ReadsFieldsByNameAndPosition) {
    const Recordset rows = database.Run("select max(kjqh), 7 as 蓝球, 2.50 as Rate from cphm");
    EXPECT_EQ(rows.recordcount(), 1);
    EXPECT_TRUE(rows.IsNull(0) && rows.IsNull("other") && rows.IsNull(3));
    EXPECT_EQ(rows.Text("蓝球") + rows.Text("RATE"), "72.5");
    EXPECT_EQ(rows.Int(0) + rows.Int("rate"), 2);
}

}  // namespace
}  // namespace ssq
