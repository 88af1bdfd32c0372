// The delivered database against values read off the public record by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "base/dates.h"
#include "base/numbers.h"
#include "draws/queries.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

class DeliveredTest : public testing::Test {
  protected:
    // Rows joined by line ends, fields by "|".
    std::string Rows(const std::string& sql) {
        std::ostringstream text;
        Recordset rows = database.Run(sql);
        for (; !rows.eof(); rows.MoveNext()) {
            for (int field = 0; field < rows.FieldCount(); ++field) {
                text << (field > 0 ? "|" : "") << rows.Text(field);
            }
            text << '\n';
        }
        return text.str();
    }

    TestDatabase database = TestDatabase::Delivered();
};

TEST_F(DeliveredTest, HoldsTheDraws) {
    EXPECT_EQ(Rows("select count(*),min(kjqh),max(kjqh),max(qid),count(cqsx) from cphm"),
              "3511|2003001|2026114|3511|3451\n");
    EXPECT_EQ(Rows("select qid,kjqh,kjhm,a1,a6,a7,kjDate,kjWeek,nnDate,cqsx from cphm "
                   "where kjqh in (2003001,2009001,2023031,2026114)"),
              "1|2003001|10,11,12,13,26,28|10|28|11|2003-02-23|1|23|26,28,11,13,10,12\n"
              "826|2009001|04,21,23,24,30,31|4|31|4|2009-01-01|5|6|04,24,21,31,23,30\n"
              "2975|2023031|07,14,27,29,31,33|7|33|5|2023-03-21|3|30|14,27,33,07,31,29\n"
              "3511|2026114|07,18,23,24,29,31|7|31|10|2026-10-06|3|26|\n");
    EXPECT_EQ(database.session().LatestIssue, "2026114");
    EXPECT_EQ(database.session().DrawCount, 3511);
}

TEST_F(DeliveredTest, HoldsThePrizesAndLeavesTheUnknownOpen) {
    EXPECT_EQ(Rows("select kjqh,xqjc,tze,zs1d,mz1d,jj1d,zs6d,mz6d,jj6d,zfj from cpjc "
                   "where kjqh in (2016100,2026114)"),
              // 4*9565716+87*262397+1349*3000+66882*200+1263132*10+8558894*5
              "2016100|960230040|335027586|4|9565716|38262864|8558894|5|42794470|133940593\n"
              "2026114|941868611|339993172|11|5775578|63531358||||\n");
    EXPECT_EQ(Rows("select count(*),min(kjqh),max(kjqh) from cpjc"), "3511|2003001|2026114\n");
}

TEST_F(DeliveredTest, ShowsTheDrawsThroughItsViews) {
    const Recordset columns = database.Run("Select * from cpInfo where 开奖期号=2016100");
    EXPECT_EQ(columns.FieldName(0), "开奖期号");
    EXPECT_EQ(columns.FieldName(6), "下期奖池");
    EXPECT_EQ(columns.Text(8), "39.98");
    EXPECT_EQ(columns.Text("一等注数"), "4");
    EXPECT_EQ(Rows("Select count(*),count(返奖比例) from cpInfo where 开奖期号>=2003001"),
              "3511|3403\n");
    EXPECT_EQ(Rows("select a1,a2,a3,a4,a5,a6,a7 from vcphm where kjqh in (2003001,2026114)"),
              "26|28|11|13|10|12|11\n7|18|23|24|29|31|10\n");
    EXPECT_EQ(Rows("select kjqh,kjhm,xqjc from cphmjc where kjqh>=2026114 or kjqh<2003002"),
              "2003001|10,11,12,13,26,28|\n2026114|07,18,23,24,29,31|941868611\n");
}

TEST_F(DeliveredTest, RoundsTheReturnRatioAsTheProgramRounds) {
    database.AddDraw(2026115, "2026-10-08", "01,02,03,04,05,06", 1);
    database.AddDraw(2026116, "2026-10-11", "01,02,03,04,05,06", 1);
    database.Run("insert into cpjc(kjqh,tze,zfj) values(2026115,80000,125)");  // 0.15625
    database.Run("insert into cpjc(kjqh,tze,zfj) values(2026116,800,3)");      // 0.375, a tie
    Recordset rows = database.Run("select * from cpInfo where 返奖比例 is not null");
    int checked = 0;
    for (; !rows.eof(); rows.MoveNext(), ++checked) {
        ASSERT_EQ(rows.Number("返奖比例"),
                  Percent(rows.Number("总返奖额"), rows.Number("投注总额")))
            << rows.Text(0);
    }
    EXPECT_EQ(checked, 3405);
}

TEST_F(DeliveredTest, HoldsTheSettingsAndStampsItsRecords) {
    EXPECT_EQ(Rows("select itype,xxqs,dmgs from vqs where itype=0"), "0|30|3\n");
    EXPECT_EQ(Rows("select count(*) from gsjs where gsname='dm' and gstext<>''"), "1\n");
    database.Run("insert into tSrecord(tQs) values(5)");
    const std::string stamp = database.Run("select txxDate from tSrecord").Text(0);
    EXPECT_LE(stamp, NowText());
    EXPECT_EQ(stamp.size(), NowText().size());
    for (int i = 0; i < 60; ++i) database.Run("insert into xxjl(rqs) values(1)");
    database.Run("delete from xxjl where id< (select min(id) from xxjlmin)");
    EXPECT_EQ(Rows("select count(*),max(id) from xxjl"), "50|60\n");
    EXPECT_FALSE(TableExists(database.session(), "BMHZ"));
}

}  // namespace
}  // namespace ssq
