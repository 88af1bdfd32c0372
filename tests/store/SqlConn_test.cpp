#include "store/SqlConn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "draws/queries.h"
#include "support/TestDatabase.h"
#include "support/paths.h"

namespace ssq {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::string Bytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class OpenFailure : public testing::Test {
  protected:
    // What opening says; every later statement must say the same.
    std::string Refusal(const fs::path& file) {
        Connection connection;
        std::string errorText;
        EXPECT_FALSE(connection.Open(file, errorText));
        EXPECT_FALSE(connection.isOpen());
        std::string laterText;
        Recordset rows;
        EXPECT_FALSE(connection.OpenQuery("select 1", laterText, rows));
        EXPECT_EQ(laterText, errorText);
        return errorText;
    }

    TempFolder folder;
    const std::string delivered = Bytes(DeliveredDatabase());
};

TEST_F(OpenFailure, IsToldForWhatIsNoDatabase) {
    EXPECT_THAT(Refusal(folder.path() / "none.mdb"), HasSubstr("找不到数据库文件"));
    EXPECT_FALSE(fs::exists(folder.path() / "none.mdb"));
    EXPECT_THAT(Refusal(folder.path()), HasSubstr("unable to open"));
    for (const char* tooShort : {"", "x"}) {
        const fs::path file = folder.Write("short.mdb", tooShort);
        EXPECT_THAT(Refusal(file), HasSubstr("not a database"));
        EXPECT_EQ(Bytes(file), tooShort);
    }
    EXPECT_THAT(Refusal(folder.Write("text.mdb", std::string(9000, 'x'))),
                HasSubstr("not a database"));
    EXPECT_THAT(Refusal(folder.Write("cut.mdb", delivered.substr(0, delivered.size() / 2))),
                HasSubstr("malformed"));
    std::string scratched = delivered;
    scratched.replace(scratched.size() / 2, 4096, 4096, '\xff');
    EXPECT_NE(Refusal(folder.Write("scratched.mdb", scratched)), "");
    constexpr std::size_t kLayoutByte = 63;  // the last one of user_version in the file's header
    std::string newer = delivered;
    ++newer[kLayoutByte];
    const fs::path file = folder.Write("newer.mdb", newer);
    EXPECT_THAT(Refusal(file), HasSubstr("请先升级"));
    EXPECT_EQ(Bytes(file), newer);
}

TEST_F(OpenFailure, IsToldForALockedFileUntilItIsFree) {
    const fs::path file = folder.Write("locked.mdb", delivered);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_THAT(Refusal(file), HasSubstr("locked"));
    TestHost host;
    Session session(host, folder.path());
    std::string errorText;
    EXPECT_FALSE(session.connection.Open(file, errorText));
    EXPECT_FALSE(ExecuteOrTell(session, "delete from trate"));
    sqlite3_close(other);
    EXPECT_TRUE(ExecuteOrTell(session, "delete from trate"));
    EXPECT_EQ(session.LatestIssue, "2026114");
    EXPECT_EQ(host.Texts(), std::vector{errorText});
}

TEST_F(OpenFailure, IsNoneForAPathOfAnyBytesOrOddNames) {
    for (const char* name : {"file:数据 ?mode=memory%20.mdb", "\xff\xfe.mdb"}) {
        Connection connection;
        std::string errorText;
        EXPECT_TRUE(connection.Open(folder.Write(name, delivered), errorText)) << errorText;
    }
}

TEST_F(OpenFailure, IsNoneForAFileThatMayOnlyBeRead) {
    const fs::path file = folder.Write("read.mdb", delivered);
    std::string errorText;
    Recordset rows;
    {
        Connection earlier;
        ASSERT_TRUE(earlier.Open(file, errorText) &&
                    earlier.OpenQuery("insert into rtoc(colvalue) values(1)", errorText, rows));
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
    fs::permissions(folder.path(), fs::perms{0555});
    fs::permissions(file, fs::perms{0444});
    const uid_t user = geteuid();
    constexpr uid_t kNobody = 65534;
    ASSERT_EQ(seteuid(user == 0 ? kNobody : user), 0);
    {
        Connection connection;
        EXPECT_TRUE(connection.Open(file, errorText)) << errorText;
        EXPECT_TRUE(connection.OpenQuery("select count(*) from cphm", errorText, rows))
            << errorText;
        EXPECT_GT(rows.Int(0), 3000);
        EXPECT_FALSE(connection.OpenQuery("delete from trate", errorText, rows));
        EXPECT_THAT(errorText, HasSubstr("readonly"));
    }
    ASSERT_EQ(seteuid(user), 0);
    fs::permissions(folder.path(), fs::perms{0755});
}

TEST(OpenDatabase, TellsTheUserAndGoesOn) {
    TempFolder folder;
    TestHost host;
    Session session(host, folder.path());
    for (const bool starting : {true, false}) {
        session.isStarting = starting;
        if (starting) OpenDatabase(session);
        EXPECT_FALSE(ExecuteOrTell(session, "delete from trate"));
        ASSERT_EQ(host.boxes.size(), starting ? 1U : 2U);
        EXPECT_EQ(host.boxes.back(), host.boxes.front());
    }
    session.connection.Close();
    EXPECT_FALSE(TableExists(session, "cphm"));
    EXPECT_EQ(host.boxes.back().text, "数据库没有打开！");
}

}  // namespace
}  // namespace ssq
