// The gateway as the updates use it: its program, beside a database of its own.
#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/text.h"
#include "gateway/DatabaseExport.h"
#include "gateway/DrawFile.h"
#include "support/UpdateTest.h"
#include "support/paths.h"

namespace ssq {
namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

// A socket that holds a port of loopback.
class TakenPort {
  public:
    TakenPort() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* place = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, place, size), 0);
        EXPECT_EQ(::getsockname(socket_, place, &size), 0);
        port_ = ntohs(address.sin_port);
    }
    ~TakenPort() { Free(); }
    TakenPort(const TakenPort&) = delete;
    TakenPort& operator=(const TakenPort&) = delete;

    int port() const { return port_; }
    void Free() {
        if (socket_ >= 0) ::close(std::exchange(socket_, -1));
    }

  private:
    int socket_;
    int port_ = 0;
};

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class GatewayUpdate : public UpdateTest {
  protected:
    GatewayUpdate() {
        Deployment& hosts = database.session().deployment;
        hosts.gatewayPort = port.port();
        hosts.resultsHost = "http://127.0.0.1:" + std::to_string(port.port());
        hosts.orderHost = hosts.salesHost = hosts.resultsHost;
        port.Free();
        fs::create_symlink(GatewayProgram(), database.folder() / "ssq_gateway");
        fs::copy_file(SourceFolder() / "data" / "draws.csv", file());
    }
    fs::path file() const { return database.folder() / "data" / "draws.csv"; }
    // The newest lines of the history, and more.
    void WriteFile(std::size_t newest, const std::string& more) const {
        std::vector<std::string> lines =
            Split(BytesOf(SourceFolder() / "data" / "draws.csv"), "\n");
        lines.erase(lines.begin() + 1, lines.end() - 1 - static_cast<std::ptrdiff_t>(newest));
        std::ofstream(file(), std::ios::binary) << Join(lines, "\n") << more;
    }

    TakenPort port;
};

TEST_F(GatewayUpdate, FillsAnEmptyDatabaseAsItIsDelivered) {
    TestDatabase delivered = TestDatabase::Delivered();
    const auto expectSame = [&](const std::string& sql) {
        const std::vector<std::string> expected = delivered.Texts(sql);
        EXPECT_GT(expected.size(), 400U);
        EXPECT_TRUE(database.Texts(sql) == expected) << sql;
    };
    updates.Draws();
    EXPECT_THAT(Told(), ElementsAre("共更新3511期!"));
    expectSame(
        "select id,qid,kjqh,kjhm,a1,a2,a3,a4,a5,a6,a7,kjDate,kjWeek,nnDate from cphm order by id");
    // Of the draws before nobody knows the money; the file lacks the newest.
    database.Run("insert into cpjc(kjqh) values(2024151)");
    updates.Prizes();
    EXPECT_THAT(Told(), ElementsAre("无数据，请稍候再试！！"));
    EXPECT_EQ(status, "奖池信息：已更新 246 期，2026096期尚未公布");
    expectSame("select * from cpjc where kjqh>2024151 and kjqh<2026096 order by kjqh");
    database.Run("update cphm set cqsx='x' where kjqh<2025001");
    updates.BallOrder();
    EXPECT_THAT(Told(), ElementsAre("无数据，请稍候再试！"));
    EXPECT_EQ(status, "出球顺序：已更新 204 期，2026054期尚未公布");
    expectSame("select kjqh,cqsx from cphm where kjqh>2025000 and kjqh<2026054 order by kjqh");
}

TEST_F(GatewayUpdate, SumsUpAllThreeInOneLine) {
    WriteFile(20, "");
    database.AddDraw(2026112, "2026-09-27", "01,02,03,04,05,06", 7, "01,02,03,04,05,06");
    database.Run("insert into cpjc(kjqh) values(2026112)");
    updates.All();
    EXPECT_THAT(Told(), ElementsAre("开奖数据：已更新 2 期；奖池信息：2026113期尚未公布；"
                                    "出球顺序：2026113期尚未公布。"));
    EXPECT_THAT(status, StartsWith("开奖数据：已更新 2 期；"));
}

TEST_F(GatewayUpdate, LetsNoBadLineAndNoHoleOut) {
    database.AddDraw(2026113, "2026-09-29", "03,04,20,24,29,30", 11);
    WriteFile(1, "2026114,2026-10-08,01,01 02 03 04 05 06,,,,,\n");
    updates.Draws();
    EXPECT_THAT(Told(), testing::Contains("共更新1期!"));
    EXPECT_THAT(status, HasSubstr("数据文件有 1 行没有采用，第 3 行期号与第 2 行重复"));
    WriteFile(1, "2026116,2026-10-11,01,01 02 03 04 05 06,,,,,\n");
    updates.Draws();
    EXPECT_EQ(Told().back(), "开奖列表的第2页读不到数据，没有更新任何一期，请稍候再试！");
    EXPECT_THAT(status, HasSubstr("在 2026116 期之前缺期"));
    EXPECT_THAT(database.Texts("select kjqh from cphm"), ElementsAre("2026113", "2026114"));
}

TEST_F(GatewayUpdate, SaysWhyThereIsNoGateway) {
    const auto expectNoPage = [this](const std::string& reason) {
        updates.Draws();
        EXPECT_THAT(Told(),
                    ElementsAre("错误!开始标记位置为:0结束标志位置为:0",
                                AllOf(StartsWith("读不到网站上的最新期号"), HasSubstr(reason))));
        EXPECT_THAT(status, AllOf(StartsWith("开奖数据：网络不通，未更新："), HasSubstr(reason)));
    };
    PageServer other;  // holds a port
    database.session().deployment.gatewayPort =
        std::stoi(other.url().substr(other.url().rfind(':') + 1));
    database.session().deployment.resultsHost = other.url();
    expectNoPage("已被占用");
    EXPECT_THAT(other.requests(), IsEmpty());
    database.session().deployment.gatewayPort = port.port();
    database.session().deployment.resultsHost = "http://127.0.0.1:" + std::to_string(port.port());
    fs::remove(file());
    expectNoPage("读不了");
    fs::remove(database.folder() / "ssq_gateway");
    expectNoPage("ssq_gateway 不在程序的文件夹里");
    EXPECT_THAT(Told(), IsEmpty());
    updates.All();
    EXPECT_THAT(Told(), SizeIs(3));  // one update's two, and the sum
}

TEST_F(GatewayUpdate, MergesASourceAndNeverChangesWhatStands) {
    const std::string grades =
        R"([{"type":1,"typenum":"7","typemoney":"6,000,000"},{"type":"2","typenum":120,
            "typemoney":"150000"},{"type":3,"typenum":"1,000","typemoney":"3000"},
            {"type":4,"typenum":"50000","typemoney":"200"},{"type":5,"typenum":"1000000",
            "typemoney":"10"},{"type":6,"typenum":"9000000","typemoney":"5"},
            {"type":7,"typenum":"","typemoney":""}])";
    const auto notice = [](const char* code, const char* date, const std::string& rest) {
        return R"j({"code":")j" + std::string(code) + R"j(","date":")j" + date +
               R"j((二)","red":"01,02,03,04,05,06","blue":"16",)j" + rest + "}";
    };
    const std::string unknown =
        R"("sales":"","poolmoney":"","prizegrades":[{"type":1,"typenum":""}])";
    const std::string known =
        R"("sales":"340,000,000","poolmoney":"900000000","prizegrades":)" + grades;
    const auto serve = [this](const std::string& notices) {
        site.Serve("/notices", [notices](const std::string&) {
            return PageReply{.body = R"({"state":0,"result":[)" + notices + "]}"};
        });
    };
    WriteFile(3, "");
    database.AddDraw(2026114, "2026-10-06", "07,18,23,24,29,31", 10, "07,18,23,24,29,31");
    database.Run("insert into cpjc(kjqh) values(2026114)");
    database.session().deployment.sourceUrl = site.url() + "/notices";

    // A new draw with all its money, and one that is only half published.
    serve(notice("2026116", "2026-10-11", unknown) + "," + notice("2026115", "2026-10-08", known));
    updates.Draws();
    EXPECT_THAT(Told(), ElementsAre("共更新2期!"));
    updates.Prizes();
    EXPECT_EQ(status, "奖池信息：已更新 1 期，2026116期尚未公布");
    EXPECT_THAT(database.Texts("select tze,xqjc,zs1d,mz1d,zs3d,zfj from cpjc where kjqh=2026115"),
                ElementsAre("340000000", "900000000", "7", "6000000", "1000", "128000000"));
    const std::string merged = BytesOf(file());
    EXPECT_THAT(merged, HasSubstr("\n2026115,2026-10-08,16,01 02 03 04 05 06,,340000000,900000000,"
                                  "7 120 1000 50000 1000000 9000000,6000000 150000 3000 200 10 5\n"
                                  "2026116,2026-10-11,16,01 02 03 04 05 06,,,,,\n"));

    // A broken answer, draws that cannot be, and another that stands otherwise change nothing.
    site.Serve("/notices", [](const std::string&) { return PageReply{.body = R"({"result":[{)"}; });
    updates.Draws();
    EXPECT_EQ(status, "开奖数据：已是最新（数据来源没有用上，来源的回答不是开奖公告）");
    serve("5," + notice("2026117", "2026年10月13日", known) + "," +
          notice("2026117", "2026-10-32\\u0000", known) + "," +
          notice("2026114", "2026-10-06", known));
    updates.Draws();
    EXPECT_THAT(status, AllOf(HasSubstr("数据来源有 3 期没有采用，第 1 条期号不正确"),
                              HasSubstr("1 期与文件不同，没有改动")));
    EXPECT_EQ(BytesOf(file()), merged);

    // The rest of the half-published draw.
    serve(notice("2026116", "2026-10-11", known));
    updates.Prizes();
    EXPECT_EQ(status, "奖池信息：已更新 1 期");

    // A hole that the source would make, and one that it closes.
    const std::string whole = BytesOf(file());
    serve(notice("2026118", "2026-10-15", known));
    updates.Draws();
    EXPECT_EQ(status,
              "开奖数据：已是最新（数据来源在 2026116 期与 2026118 期之间缺期，之后的没有采用）");
    EXPECT_EQ(BytesOf(file()), whole);
    WriteFile(3, "2026116,2026-10-11,16,01 02 03 04 05 06,,,,,\n");
    serve(notice("2026115", "2026-10-08", known));
    updates.Draws();
    EXPECT_EQ(status, "开奖数据：已是最新");
}

TEST(GatewayFile, TellsOnceOfEachChange) {
    const TempFolder folder;
    const fs::path path = folder.path() / "draws.csv";
    const auto write = [&](const std::string& lines) {
        std::ofstream(path, std::ios::binary) << kDrawsCsvHeading << "\n" << lines;
    };
    const std::string good = "2026114,2026-10-06,10,07 18 23 24 29 31,,,,,\n";
    DrawFile file(path);
    std::string fault;
    write(good);
    EXPECT_EQ(file.Refresh(fault), Refreshed::kRead);
    EXPECT_EQ(file.Refresh(fault), Refreshed::kUnchanged);
    write(good + "2026115,2026-10-08,99,01 02 03 04 05 06,,,,,\n");
    EXPECT_EQ(file.Refresh(fault), Refreshed::kRead);
    EXPECT_THAT(file.csv().faults, SizeIs(1));
    write("no draw\n");
    EXPECT_EQ(file.Refresh(fault), Refreshed::kFailed);
    EXPECT_EQ(file.Refresh(fault), Refreshed::kUnchanged);
    EXPECT_THAT(file.csv().draws, SizeIs(1));
}

TEST(GatewayExport, WritesTheDeliveredDatabaseAsTheFileItWasMadeFrom) {
    const TempFolder folder;
    std::string told;
    ASSERT_TRUE(ExportDatabase(DeliveredDatabase(), folder.path() / "out.csv", told));
    EXPECT_EQ(told, "已导出 3511 期");
    EXPECT_TRUE(BytesOf(folder.path() / "out.csv") ==
                BytesOf(SourceFolder() / "data" / "draws.csv"));
    EXPECT_FALSE(ExportDatabase(folder.path() / "none.mdb", folder.path() / "out.csv", told));
}

}  // namespace
}  // namespace ssq
