// A program's folder with an open database, for one test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "draws/Public_var.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

namespace ssq {

class TestDatabase {
  public:
    // Every table, view and row of settings, and no draw.
    TestDatabase();
    // A copy of the database that the program is delivered with.
    static TestDatabase Delivered();

    Session& session() { return session_; }
    TestHost& host() { return host_; }
    std::filesystem::path folder() const { return folder_.path(); }
    std::filesystem::path file() const { return folder() / "data" / "ssq.mdb"; }

    // Adds a draw with the next qid; the reds are ascending, such as "03,09,15,21,28,33", the
    // date "yyyy-mm-dd". Weekday and lunar day follow from the date, cqsx is null when `drawn` is
    // empty. Keeps LatestIssue and DrawCount of the session level. Throws what the store says.
    void AddDraw(int issue, std::string_view date, std::string_view reds, int blue,
                 std::string_view drawn = {});

    // Any statement; throws what the store says.
    Recordset Run(const std::string& sql);

    // The fields of its rows as texts, row after row.
    std::vector<std::string> Texts(const std::string& sql);

  private:
    explicit TestDatabase(const std::filesystem::path& original);
    void Open();

    TempFolder folder_;
    TestHost host_;
    Session session_{host_, folder_.path()};
};

}  // namespace ssq
