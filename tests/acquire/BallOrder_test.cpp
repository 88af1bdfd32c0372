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
    std::vector<std::string> Update(const std::string& page) {
        site.Serve(kOrderPath, Always(page));
        updates.BallOrder();
        return Told();
    }
};

TEST_F(OrderUpdate, FillsWhatIsNullCheckingOnlyTheLength) {
    EXPECT_THAT(Update(OrderPage({"3", "01", "02", "06", "05", "04"})),
                ElementsAre("3,01,02,06,05,04格式不正确！"));
    EXPECT_THAT(Update(OrderPage({"ab", "01", "'1", "06", "05", "4,"})),
                ElementsAre("共更新2期！"));
    EXPECT_THAT(database.Texts("select cqsx from cphm"),
                ElementsAre("06,05,04,03,02,01", "ab,01,'1,06,05,4,", "ab,01,'1,06,05,4,"));
    EXPECT_THAT(site.requests().back(),
                HasSubstr("?operator=outball&type=draw&drawBegin=2009003&drawEnd=2009003 "));
}

TEST_F(OrderUpdate, StopsWhereThePageHasNoTableOrTooFewCells) {
    EXPECT_THAT(
        Update("<p>没有数据</p>"),
        ElementsAre("<p>没有数据</p>错误!开始标记位置为:0结束标志位置为:0", "格式不正确！"));
    EXPECT_THAT(Update(OrderPage({"03", "01"})), ElementsAre("无数据，请稍候再试！"));
    EXPECT_EQ(status, "出球顺序：2009002期尚未公布");
    const std::string longest(1 << 20, '1');
    const std::vector<std::string> told = Update(OrderPage({longest, "", "", "", "", ""}));
    EXPECT_THAT(told, SizeIs(6));  // a box for each empty cell
    EXPECT_EQ(told.back(), longest + ",,,,,格式不正确！");
    EXPECT_THAT(database.Texts("select kjqh from cphm where cqsx is null"), SizeIs(2));
}

}  // namespace
}  // namespace ssq
