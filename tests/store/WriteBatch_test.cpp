#include "store/WriteBatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "draws/queries.h"
#include "support/TestDatabase.h"

namespace ssq {
namespace {

using testing::ElementsAre;

class WriteBatchTest : public testing::Test {
  protected:
    void Insert(int count) {
        for (int i = 0; i < count; ++i) database.Run("insert into rtoc(colvalue) values(1)");
    }

    // Rows that another program sees.
    std::int64_t RowsOnDisk() {
        Connection other;
        std::string errorText;
        Recordset rows;
        EXPECT_TRUE(other.Open(database.file(), errorText)) << errorText;
        EXPECT_TRUE(other.OpenQuery("select count(*) from rtoc", errorText, rows)) << errorText;
        return rows.Int(0);
    }

    void Pump() { session.host.ShowMessage("pump"); }

    TestDatabase database;
    Session& session = database.session();
};

TEST_F(WriteBatchTest, ReachesTheDiskAtItsEndAndAtEachPump) {
    std::vector<std::int64_t> seen;
    database.host().onPump = [&] { seen.push_back(RowsOnDisk()); };
    {
        const WriteBatch batch(session.host, session.connection);
        Insert(2);
        EXPECT_EQ(RowsOnDisk(), 0);
        EXPECT_FALSE(ExecuteOrTell(session, "insert into nowhere values(1)"));
        Insert(1);
        EXPECT_EQ(RowsOnDisk(), 2);
    }
    EXPECT_EQ(RowsOnDisk(), 3);
    EXPECT_THAT(seen, ElementsAre(2));
}

TEST_F(WriteBatchTest, NestsInsideARunAndInsideAPump) {
    std::vector<std::int64_t> seen;
    database.host().onPump = [&] {
        seen.push_back(RowsOnDisk());
        const WriteBatch inPump(session.host, session.connection);
        Insert(10);
    };
    {
        const WriteBatch outer(session.host, session.connection);
        Insert(1);
        {
            const WriteBatch inner(session.host, session.connection);
            Insert(1);
            Pump();
            Insert(1);
        }
        EXPECT_EQ(RowsOnDisk(), 12);  // the outer batch goes on
        Insert(1);
        Pump();
    }
    EXPECT_THAT(seen, ElementsAre(2, 14));
    EXPECT_EQ(RowsOnDisk(), 24);
}

TEST_F(WriteBatchTest, StaysClosedBetweenTheBoxesOfARunWithoutABatch) {
    std::vector<bool> open;
    bool inside = false;
    database.host().onPump = [&] {
        if (inside) return;
        inside = true;
        for (int box = 0; box < 2; ++box) {
            Pump();
            open.push_back(session.connection.InTransaction());
        }
    };
    const WriteBatch batch(session.host, session.connection);
    Insert(1);
    Pump();
    EXPECT_THAT(open, ElementsAre(false, false));
    EXPECT_TRUE(session.connection.InTransaction());
}

// A deferred key that points nowhere lets every statement pass and the commit fail.
TEST_F(WriteBatchTest, EndsTheRunWhoseCommitFails) {
    database.Run("pragma foreign_keys=on");
    database.Run("create table parent(id integer primary key)");
    database.Run("create table child(id integer references parent deferrable initially deferred)");
    bool inPump = false;
    database.host().onPump = [&] { inPump = ExecuteOrTell(session, "select 1"); };
    for (const bool pumps : {true, false}) {
        std::string errorText;
        WriteBatch batch(session.host, session.connection);
        Insert(1);
        Pump();
        database.Run("insert into child values(7)");
        WriteBatch inner(session.host, session.connection);
        if (pumps) {
            Pump();
            EXPECT_TRUE(inPump);
            Recordset rows;
            EXPECT_FALSE(session.connection.OpenQuery("select 1", errorText, rows));
            EXPECT_THAT(errorText, testing::HasSubstr("FOREIGN KEY"));
        }
        EXPECT_EQ(inner.Commit(errorText), !pumps);
        errorText.clear();
        EXPECT_FALSE(batch.Commit(errorText));
        EXPECT_THAT(errorText, testing::HasSubstr("FOREIGN KEY"));
        EXPECT_FALSE(session.connection.InTransaction());
    }
    EXPECT_EQ(RowsOnDisk(), 2);
    EXPECT_EQ(database.Run("select * from child").recordcount(), 0);
    EXPECT_THAT(database.host().Texts(), ElementsAre("pump", "pump", "pump"));
}

TEST_F(WriteBatchTest, SurvivesAConnectionClosedInAPump) {
    database.host().onPump = [&] { session.connection.Close(); };
    {
        const WriteBatch batch(session.host, session.connection);
        Insert(2);
        Pump();
        EXPECT_FALSE(session.connection.isOpen());
    }
    EXPECT_EQ(RowsOnDisk(), 2);
    EXPECT_THAT(database.host().Texts(), ElementsAre("pump"));
}

// Writes without end in a process of its own, telling the count after each pump, until killed.
[[noreturn]] void WriteUntilKilled(const std::filesystem::path& folder, int pipe) {
    TestHost host;
    Session session(host, folder);
    OpenDatabase(session);
    const WriteBatch batch(session.host, session.connection);
    for (std::int64_t count = 1;; ++count) {
        if (!ExecuteOrTell(session, "insert into rtoc(colvalue) values(1)")) _exit(1);
        if (count % 50 != 0) continue;
        host.ShowMessage("");
        if (write(pipe, &count, sizeof count) != sizeof count) _exit(1);
    }
}

TEST_F(WriteBatchTest, LosesNothingReportedWhenTheProcessIsKilled) {
    std::int64_t before = 0;
    for (int round = 0; round < 5; ++round) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0) WriteUntilKilled(database.folder(), ends[1]);
        close(ends[1]);
        std::int64_t reported = 0;
        for (int i = 0; i < 3 + round; ++i) {
            ASSERT_EQ(read(ends[0], &reported, sizeof reported), sizeof reported);
        }
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        while (read(ends[0], &reported, sizeof reported) > 0) {
        }
        close(ends[0]);
        const std::int64_t after = RowsOnDisk();
        EXPECT_GE(after, before + reported);
        before = after;
    }
}

}  // namespace
}  // namespace ssq
