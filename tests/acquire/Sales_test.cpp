#include "acquire/Sales.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/text.h"
#include "support/LotterySite.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

// 33 down to 01, so that number n stands at position 34 - n.
std::vector<std::string> Descending() {
    std::vector<std::string> numbers;
    for (int n = 33; n >= 1; --n) numbers.push_back(TwoDigits(n));
    return numbers;
}

class SalesUpdate : public testing::Test {
  protected:
    SalesUpdate() {
        database.session().deployment.salesHost = site.url();
        database.AddDraw(2009011, "2009-01-27", "01,02,03,04,05,06", 7);
        database.AddDraw(2009012, "2009-01-29", "01,02,11,12,22,23", 7);
    }
    void Update(const std::vector<SiteSales>& sales) {
        database.host().boxes.clear();
        site.Serve("/pages/info/ssq/inc/red_fsfx_inc.php", Always(SalesPage(sales)));
        UpdateSales(database.session());
    }
    std::vector<std::string> Texts() { return database.host().Texts(); }
    std::string Row(int issue) {
        return database
            .Run(
                "select a1||' '||a33||' '||q1||q2||q3||' '||q3b||' '||kjhm||' '||hmpos||' '||"
                "ifnull(iscurrent,'-') from o_sale where kjqh=" +
                std::to_string(issue))
            .Text(0);
    }
    std::int64_t Count() { return database.Run("select count(*) from o_sale").Int(0); }

    const SiteSales drawn{"09012", Descending(), {"23", "22", "12", "11", "02", "01"}};
    const SiteSales running{"当 前 期：09013", Descending(), {}};
    TestDatabase database;
    PageServer site;
};

TEST_F(SalesUpdate, StoresDrawnIssuesAndTheRunningOne) {
    database.Run("insert into o_sale(kjqh,iscurrent) values(2009012,1)");
    database.Run("insert into o_sale(kjqh,a1) values(2009011,9)");
    Update({{"09011", Descending(), {}}, drawn, running});
    EXPECT_THAT(Texts(), ElementsAre("更新完成,共更新-202期！"));
    EXPECT_THAT(site.requests(), ElementsAre(EndsWith("?expect=-201")));
    EXPECT_EQ(Count(), 3);
    // Positions 11 and 12, and 22 and 23, are in different thirds.
    EXPECT_EQ(Row(2009012), "33 1 123 1:2:3 23,22,12,11,02,01 11,12,22,23,32,33, -");
    EXPECT_EQ(Row(2009013), "33 1 000 0:0:0   1");
    EXPECT_EQ(database.Run("select a1 from o_sale where kjqh=2009011").Int(0), 9);
    Update({drawn, running});
    EXPECT_EQ(Count(), 3);
}

TEST_F(SalesUpdate, RefusesRowsThatAreNotAnIssueAndAll33Numbers) {
    const auto with = [this](std::size_t position, const char* number) {
        SiteSales sales = drawn;
        sales.numbers[position] = number;
        return sales;
    };
    SiteSales shorter = drawn;
    shorter.numbers.pop_back();
    const struct {
        SiteSales sales;
        const char* told;
    } kCases[] = {
        {with(4, "01"), "2009012期的销售数据不正确！"},
        {with(4, "34"), "2009012期的销售数据不正确！"},
        {with(4, "(select 1)"), "2009012期的销售数据不正确！"},
        {shorter, "2009012期的销售数据不正确！"},
        {{"09012'", Descending(), {}}, "销售数据的期号不正确：2009012'"},
    };
    for (const auto& c : kCases) {
        Update({{"09010", Descending(), {}}, c.sales, running});
        EXPECT_THAT(Texts(), ElementsAre(c.told));
        EXPECT_EQ(Count(), 1);
        database.Run("delete from o_sale");
    }
}

TEST_F(SalesUpdate, ShowsAPageWithoutTheTable) {
    site.Serve("/pages/info/ssq/inc/red_fsfx_inc.php", Always("<p>维护</p>"));
    UpdateSales(database.session());
    EXPECT_THAT(Texts(), ElementsAre(HasSubstr("<p>维护</p>错误!"), "更新完成,共更新-201期！"));
    database.Run("drop table o_sale");
    Update({});
    EXPECT_THAT(Texts(), ElementsAre(HasSubstr("o_sale")));
}

TEST_F(SalesUpdate, TableMarksWinnersAndEndsWithTheRunningIssue) {
    Update({drawn, running});
    ResultGrid grid;
    ASSERT_TRUE(SalesTable(database.session(), {"2009001", "2009012"}, grid));
    EXPECT_EQ(grid.rows(), 4);
    EXPECT_EQ(grid.cols(), 36);
    EXPECT_EQ(grid.fixedRows(), 2);
    EXPECT_EQ(grid.fixedCols(), 1);
    EXPECT_EQ(grid.cell(0, 11) + grid.cell(0, 12) + grid.cell(0, 23), "热号温号冷号");
    EXPECT_EQ(grid.cell(1, 0) + grid.cell(1, 9) + grid.cell(1, 34) + grid.cell(1, 35),
              "开奖期号09三区比开奖号码");
    EXPECT_EQ(grid.cell(2, 0) + grid.cell(2, 33) + grid.cell(2, 34), "2009012011:2:3");
    EXPECT_EQ(grid.cell(2, 35), "23,22,12,11,02,01");
    const Rgb warm{0xD0, 0xEA, 0xE8};
    const Rgb winner{0xE6, 0x99, 0x99};
    for (int col = 0; col < grid.cols(); ++col) {
        const bool won = col == 11 || col == 12 || col == 22 || col == 23 || col == 32 || col == 33;
        const bool inWarm = col >= 12 && col <= 22;
        const auto expected = won      ? std::optional(winner)
                              : inWarm ? std::optional(warm)
                                       : std::nullopt;
        EXPECT_EQ(grid.style(2, col).back, expected) << col;
        EXPECT_EQ(grid.style(3, col).back, std::nullopt) << col;
    }
    EXPECT_EQ(grid.cell(3, 0) + grid.cell(3, 1) + grid.cell(3, 34), "200901333");
    EXPECT_EQ(grid.rowHeight(3), 300);
    EXPECT_EQ(grid.colWidth(33), 460);
    EXPECT_EQ(grid.colWidth(35), 1760);
    EXPECT_EQ(grid.alignment(0), Align::kCentre);
    EXPECT_TRUE(grid.mergeRow(0) && grid.mergeCol(1) && grid.mergeCol(33) && !grid.mergeCol(34));

    EXPECT_FALSE(SalesTable(database.session(), {"2009001", "1 or 1"}, grid));
    EXPECT_EQ(grid.cell(1, 0), "");
}

}  // namespace
}  // namespace ssq
