#include "acquire/BallOrder.h"

#include "support/UpdateTest.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class OrderUpdate : public UpdateTest {
  protected:
    OrderUpdate() {
        database.AddDraw(2009001, "2009-01-01", "01,02,03,04,05,06", 7, "06,05,04,03,02,01");
        database.AddDraw(2009002, "2009-01-04", "01,02,03,04,05,06", 7);
        database.AddDraw(2009003, "2009-01-06", "01,02,03,04,05,06", 7);
    }
    int Update(const std::string& page) {
        site.Serve("/trend/analysessq.do", Always(page));
        return UpdateBallOrder(database.session());
    }
};

TEST_F(OrderUpdate, FillsWhatIsNullCheckingOnlyTheLength) {
    EXPECT_EQ(Update(OrderPage({"3", "01", "02", "06", "05", "04"})), 0);
    EXPECT_THAT(Told(), ElementsAre("3,01,02,06,05,04格式不正确！"));
    EXPECT_EQ(Update(OrderPage({"ab", "01", "'1", "06", "05", "4,"})), 2);
    EXPECT_THAT(Told(), ElementsAre("共更新2期！"));
    EXPECT_THAT(database.Texts("select cqsx from cphm"),
                ElementsAre("06,05,04,03,02,01", "ab,01,'1,06,05,4,", "ab,01,'1,06,05,4,"));
    EXPECT_THAT(site.requests().back(),
                HasSubstr("?operator=outball&type=draw&drawBegin=2009003&drawEnd=2009003 "));
}

TEST_F(OrderUpdate, LeavesTheWorkToASecondOneStartedInBetween) {
    const PageReply slow{.body = Gbk(OrderPage({"06", "01", "02", "03", "05", "04"})),
                         .delay = std::chrono::milliseconds(20)};
    site.Serve("/trend/analysessq.do", [&](const std::string&) { return slow; });
    database.host().onPump = [this] {
        database.host().onPump = nullptr;
        EXPECT_EQ(UpdateBallOrder(database.session()), 1);
    };
    EXPECT_EQ(UpdateBallOrder(database.session()), 1);
    EXPECT_THAT(Told(), ElementsAre("共更新1期！"));
    EXPECT_THAT(site.requests(), SizeIs(2));
}

TEST_F(OrderUpdate, StopsWhereThePageHasNoTableOrTooFewCells) {
    EXPECT_EQ(Update("<p>没有数据</p>"), 0);
    EXPECT_THAT(Told(), ElementsAre("<p>没有数据</p>错误!开始标记位置为:0结束标志位置为:0",
                                    "格式不正确！"));
    EXPECT_EQ(Update(OrderPage({"03", "01"})), 0);
    EXPECT_THAT(Told(), ElementsAre("无数据，请稍候再试！"));
    EXPECT_EQ(Update(OrderPage({std::string(1 << 20, '1'), "", "", "", "", ""})), 0);
    EXPECT_THAT(Told(), SizeIs(6));  // a box for each empty cell
    EXPECT_THAT(database.Texts("select kjqh from cphm where cqsx is null"), SizeIs(2));
}

}  // namespace
}  // namespace ssq
