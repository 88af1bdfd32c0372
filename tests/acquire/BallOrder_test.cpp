#include "acquire/BallOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LotterySite.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::SizeIs;

class OrderUpdate : public testing::Test {
  protected:
    OrderUpdate() {
        database.session().deployment.orderHost = site.url();
        database.AddDraw(2009001, "2009-01-01", "01,02,03,04,05,06", 7, "06,05,04,03,02,01");
        database.AddDraw(2009002, "2009-01-04", "01,02,03,04,05,06", 7);
        database.AddDraw(2009003, "2009-01-06", "01,02,03,04,05,06", 7);
    }
    int Update(const std::string& page) {
        database.host().boxes.clear();
        site.Serve("/trend/analysessq.do", Always(page));
        return UpdateBallOrder(database.session());
    }
    std::vector<std::string> Texts() { return database.host().Texts(); }
    std::string Order(int issue) {
        return database.Run("select cqsx from cphm where kjqh=" + std::to_string(issue)).Text(0);
    }

    TestDatabase database;
    PageServer site;
};

TEST_F(OrderUpdate, FillsWhatIsNullDrawByDraw) {
    EXPECT_EQ(Update(OrderPage({"03", "01", "02", "06", "05", "04"})), 2);
    EXPECT_THAT(Texts(), ElementsAre("共更新2期！"));
    EXPECT_EQ(Order(2009001), "06,05,04,03,02,01");
    EXPECT_EQ(Order(2009003), "03,01,02,06,05,04");
    EXPECT_THAT(
        site.requests(),
        ElementsAre(EndsWith("?operator=outball&type=draw&drawBegin=2009002&drawEnd=2009002"),
                    EndsWith("&drawBegin=2009003&drawEnd=2009003")));
    EXPECT_EQ(Update(""), 0);
    EXPECT_THAT(Texts(), ElementsAre("已经是最新，无需更新！"));
}

TEST_F(OrderUpdate, ChecksTheLengthAndNothingElse) {
    EXPECT_EQ(Update(OrderPage({"3", "01", "02", "06", "05", "04"})), 0);
    EXPECT_THAT(Texts(), ElementsAre("3,01,02,06,05,04格式不正确！"));
    EXPECT_EQ(Update(OrderPage({"ab", "01", "'1", "06", "05", "4,"})), 2);
    EXPECT_EQ(Order(2009002), "ab,01,'1,06,05,4,");
}

TEST_F(OrderUpdate, StopsWhereThePageHasNoTableOrTooFewCells) {
    EXPECT_EQ(Update("<p>没有数据</p>"), 0);
    EXPECT_THAT(Texts(), ElementsAre("<p>没有数据</p>错误!开始标记位置为:0结束标志位置为:0",
                                     "格式不正确！"));
    EXPECT_EQ(Update(OrderPage({"03", "01"})), 0);
    EXPECT_THAT(Texts(), ElementsAre("无数据，请稍候再试！"));
    EXPECT_EQ(Update(OrderPage({std::string(1 << 20, '1'), "", "", "", "", ""})), 0);
    EXPECT_THAT(Texts(), SizeIs(6));  // a box for each empty cell
    EXPECT_EQ(Order(2009002), "");
}

}  // namespace
}  // namespace ssq
