#include "acquire/getWWW.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LotterySite.h"
#include "support/TestHost.h"
#include "ui/Run.h"

namespace ssq {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class Fetch : public testing::Test {
  protected:
    std::string Get(PageReply reply, const FetchOptions& options = {}) {
        server.Serve("/page", [reply](const std::string&) { return reply; });
        return FetchPage(run, server.url() + "/page?a=1", fault, options);
    }

    TestHost host;
    ssq::Run run{host};
    std::string fault;
    PageServer server;
};

TEST_F(Fetch, AsksPastCachesAndReadsGbkAcrossReceivedPieces) {
    std::string expected;
    for (int i = 0; i < 40'000; ++i) expected += i % 7 == 0 ? "a双" : "色球";
    EXPECT_EQ(Get({Gbk(expected)}), expected);
    for (const char* line : {"GET /page?a=1 ", "\r\nUser-Agent: VB Project\r\n",
                             "\r\nCache-Control: no-cache\r\n", "\r\nPragma: no-cache\r\n"}) {
        EXPECT_THAT(server.requests().back(), HasSubstr(line));
    }
}

TEST_F(Fetch, FollowsRedirectsOverHttpOnly) {
    server.Serve("/new", Always("moved"));
    EXPECT_EQ(Get({.location = "/new"}), "moved");
    EXPECT_EQ(Get({.location = "/page"}), "");
    EXPECT_EQ(Get({.location = "file:///etc/hostname"}), "");
}

TEST_F(Fetch, GivesNothingAndShowsNothingOnFailure) {
    using std::chrono::milliseconds;
    const struct {
        PageReply reply;
        FetchOptions options;
        const char* reason;
    } kCases[] = {
        {{.body = "a page that breaks off", .cutAt = 6}, {}, "网页没有收全"},
        {{""}, {}, "网页是空的"},
        {{.body = "late", .delay = milliseconds(400)}, {.silence = milliseconds(100)}, "没有回应"},
        {{std::string(1001, 'x')}, {.largestBody = 1000}, "网页太大"},
        {{.body = "no such page", .status = 404}, {}, "网站回答 404"},
        {{.body = "out of order", .status = 500}, {}, "网站回答 500"},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(Get(c.reply, c.options), "");
        EXPECT_EQ(fault, "没有收到 " + server.url().substr(7) + " 的网页（" + c.reason + "）");
    }
    EXPECT_EQ(Get({std::string(1000, 'x')}, {.largestBody = 1000}), std::string(1000, 'x'));
    EXPECT_EQ(fault, "");
    EXPECT_EQ(FetchPage(run, "http://127.0.0.1:1/", fault), "");
    EXPECT_EQ(fault, "没有收到 127.0.0.1:1 的网页（连接不上）");
    EXPECT_EQ(FetchPage(run, "file:///etc/hostname", fault), "");
    EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Fetch, TakesAsLongAsThePageKeepsComing) {
    using std::chrono::milliseconds;
    const PageReply slow{.body = std::string(1000, 'x'), .pause = milliseconds(150)};
    EXPECT_EQ(Get(slow, {.silence = milliseconds(400)}), slow.body);
}

TEST_F(Fetch, EndsWithTheProgram) {
    host.onPump = [this] { host.Stop(); };
    EXPECT_EQ(Get({.body = "late", .delay = std::chrono::milliseconds(400)}), "");
    EXPECT_EQ(fault, "");
}

TEST(DecodePage, TakesUtf8WhereThePageSaysSoAndIsIt) {
    const std::string text = "双色球囍";  // the last is in GBK only
    for (const char* tag :
         {"<META http-equiv=x content=\"text/html; charset=utf-8\">", "<meta charset='UTF-8'>"}) {
        EXPECT_EQ(DecodePage(tag + text, "text/html"), tag + text);
    }
    for (const char* header : {"text/html; charset=UTF-8", "text/html; charset=\"utf-8\""}) {
        EXPECT_EQ(DecodePage(text, header), text);
        EXPECT_EQ(DecodePage(Gbk(text), header), text);
    }
    EXPECT_EQ(DecodePage(Gbk("<meta charset=gb2312>" + text), ""), "<meta charset=gb2312>" + text);
    EXPECT_EQ(DecodePage("a\xFF<b>\x81", ""), "a\uFFFD<b>\uFFFD");
}

TEST(CutBetween, GivesWhatStandsBetweenOrShowsBothPositions) {
    TestHost host;
    EXPECT_EQ(CutBetween(host, "期=", "\"", "x\"期=2009\"期=7\""), "2009");
    EXPECT_THAT(host.boxes, IsEmpty());
    const struct {
        std::string text;
        const char* positions;
    } kFailures[] = {
        {"号期=", "错误!开始标记位置为:4结束标志位置为:0"},      // nothing behind the start mark
        {"号期=\"ab", "错误!开始标记位置为:4结束标志位置为:4"},  // nothing between them
        {"号\"ab", "错误!开始标记位置为:0结束标志位置为:0"},     // no start mark
    };
    for (const auto& failure : kFailures) {
        EXPECT_EQ(CutBetween(host, "期=", "\"", failure.text), "");
        EXPECT_EQ(host.boxes.back(), (TestHost::Box{"", failure.text + failure.positions}));
    }
}

TEST(RegexTexts, CollectAndReplaceAllMatchesInAnyCase) {
    EXPECT_EQ(RegexCollect("<td[\\s\\S]*?\\/td>", "<TD>1\n</td>x<td>2</TD>"),
              "<TD>1\n</td>{tornelk}<td>2</TD>{tornelk}");
    EXPECT_EQ(RegexCollect("b", "aaa"), "");
    EXPECT_EQ(RegexReplace("b", "aaa", "c"), "aaa");
    EXPECT_EQ(RegexReplace("(", "aaa", "c"), "aaa");
}

}  // namespace
}  // namespace ssq
