#include "acquire/Sales.h"

#include "base/text.h"
#include "support/UpdateTest.h"
#include "ui/Run.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SalesUpdate : public UpdateTest {
  protected:
    SalesUpdate() {
        database.AddDraw(2009011, "2009-01-27", "01,02,03,04,05,06", 7);
        database.AddDraw(2009012, "2009-01-29", "01,02,11,12,22,23", 7);
    }
    void Update(const std::string& page) {
        site.Serve(kSalesPath, Always(page));
        ssq::Run run(database.host());
        const UpdateResult result = UpdateSales(database.session(), run);
        if (!result.box.empty()) database.host().ShowMessage(result.box);
    }

    // Number n stands at position 34 - n.
    const SiteSales drawn{"09012", DescendingNumbers(), {"23", "22", "12", "11", "02", "01"}};
    const SiteSales running{"当 前 期：09013", DescendingNumbers(), {}};
};

TEST_F(SalesUpdate, StoresDrawnIssuesAndTheRunningOne) {
    database.Run("insert into o_sale(kjqh,iscurrent) values(2009012,1)");
    database.Run("insert into o_sale(kjqh,a1) values(2009011,9)");
    Update(SalesPage({{"09011", DescendingNumbers(), {}}, drawn, running}));
    EXPECT_THAT(Told(), ElementsAre("更新完成,共更新-202期！"));
    EXPECT_THAT(site.requests(), ElementsAre(HasSubstr("?expect=-201 ")));
    Update(SalesPage({drawn, running}));
    // Positions 11 and 12, and 22 and 23, are in different thirds.
    EXPECT_THAT(database.Texts("select kjqh,a1,a33,q1,q2,q3,q3b,kjhm,hmpos,iscurrent from o_sale "
                               "where kjqh>2009011 order by kjqh"),
                ElementsAre("2009012", "33", "1", "1", "2", "3", "1:2:3", "23,22,12,11,02,01",
                            "11,12,22,23,32,33,", "",  //
                            "2009013", "33", "1", "0", "0", "0", "0:0:0", "", "", "1"));
    EXPECT_THAT(database.Texts("select a1 from o_sale where kjqh<=2009011"), ElementsAre("9"));
}

TEST_F(SalesUpdate, RefusesRowsThatAreNotAnIssueAndAll33Numbers) {
    for (const char* wrong : {"01", "34", "(select 1)", ""}) {
        SiteSales sales = drawn;
        sales.numbers[4] = wrong;
        Update(SalesPage({{"09010", DescendingNumbers(), {}}, sales, running}));
        EXPECT_EQ(Told().back(), "2009012期的销售数据不正确！");
        EXPECT_THAT(database.Texts("select kjqh from o_sale"), ElementsAre("2009010"));
        database.Run("delete from o_sale");
    }
    Update(SalesPage({{"09012'", DescendingNumbers(), {}}}));
    EXPECT_THAT(Told(), ElementsAre("销售数据的期号不正确：2009012'"));
    Update("<p>维护</p>");
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("<p>维护</p>错误!"), "更新完成,共更新-201期！"));
    database.Run("drop table o_sale");
    Update("");
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("o_sale")));
}

TEST_F(SalesUpdate, TableMarksWinnersAndEndsWithTheRunningIssue) {
    Update(SalesPage({drawn, running}));
    const auto report = BuildSalesTable(database.session(), {"2009001", "2009012"});
    ASSERT_TRUE(report);
    const ResultGrid& grid = report->grid;
    EXPECT_EQ(grid.rows(), 4);
    const struct {
        int row;
        int col;
        const char* text;
    } kCells[] = {
        {0, 11, "热号"},
        {0, 12, "温号"},
        {0, 23, "冷号"},
        {1, 0, "开奖期号"},
        {1, 9, "09"},
        {1, 34, "三区比"},
        {1, 35, "开奖号码"},
        {2, 0, "2009012"},
        {2, 33, "01"},
        {2, 34, "1:2:3"},
        {2, 35, "23,22,12,11,02,01"},
        {3, 0, "2009013"},
        {3, 1, "33"},
        {3, 34, ""},
    };
    for (const auto& c : kCells) EXPECT_EQ(grid.cell(c.row, c.col), c.text) << c.row << c.col;
    for (int col = 0; col < grid.cols(); ++col) {
        const bool won = col == 11 || col == 12 || col == 22 || col == 23 || col == 32 || col == 33;
        std::optional<Rgb> expected;
        if (col >= 12 && col <= 22) expected = Rgb{0xD0, 0xEA, 0xE8};
        if (won) expected = Rgb{0xE6, 0x99, 0x99};
        EXPECT_EQ(grid.style(2, col).back, expected) << col;
        EXPECT_EQ(grid.style(3, col).back, std::nullopt) << col;
    }
    EXPECT_FALSE(BuildSalesTable(database.session(), {"2009001", "1 or 1"}));
}

}  // namespace
}  // namespace ssq
