#include "support/TestDatabase.h"

#include <sqlite3.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "base/ConvertYlDate.h"
#include "base/dates.h"
#include "draws/public_fun.h"
#include "support/paths.h"

namespace ssq {

namespace {

void MakeFromSchema(const std::filesystem::path& file) {
    std::ifstream stream(SourceFolder() / "data" / "schema.sql", std::ios::binary);
    const std::string schema{std::istreambuf_iterator<char>(stream), {}};
    sqlite3* database = nullptr;
    sqlite3_open(file.c_str(), &database);
    const int code =
        sqlite3_exec(database, ("begin;" + schema + "commit;").c_str(), nullptr, nullptr, nullptr);
    const std::string error = sqlite3_errmsg(database);
    sqlite3_close_v2(database);
    if (code != SQLITE_OK || schema.empty()) throw std::runtime_error("schema: " + error);
}

}  // namespace

TestDatabase::TestDatabase() {
    std::filesystem::create_directory(folder() / "data");
    MakeFromSchema(file());
    Open();
}

TestDatabase::TestDatabase(const std::filesystem::path& original) {
    std::filesystem::create_directory(folder() / "data");
    std::filesystem::copy_file(original, file());
    Open();
}

TestDatabase TestDatabase::Delivered() {
    return TestDatabase(DeliveredDatabase());
}

void TestDatabase::Open() {
    std::string errorText;
    if (!session_.connection.Open(file(), errorText)) throw std::runtime_error(errorText);
    RefreshLatestIssue(session_);
}

void TestDatabase::AddDraw(int issue, std::string_view date, std::string_view reds, int blue,
                           std::string_view drawn) {
    const std::string day(date);
    const std::string balls(reds);
    const Date drawDate = ParseDate(date).value();
    const std::string nextId = std::to_string(Run("select max(qid) from cphm").Int(0) + 1);
    Run("insert into cphm(qid,kjqh,kjhm,a1,a2,a3,a4,a5,a6,a7,kjDate,kjWeek,nnDate,cqsx) values(" +
        nextId + "," + std::to_string(issue) + ",'" + balls + "'," + balls + "," +
        std::to_string(blue) + ",'" + day + "'," + std::to_string(Weekday(drawDate)) + "," +
        LunarDay(LunarText(date)) + "," +
        (drawn.empty() ? "null" : "'" + std::string(drawn) + "'") + ")");
    RefreshLatestIssue(session_);
}

Recordset TestDatabase::Run(const std::string& sql) {
    std::string errorText;
    Recordset rows;
    if (!session_.connection.OpenQuery(sql, errorText, rows)) throw std::runtime_error(errorText);
    return rows;
}

std::vector<std::string> TestDatabase::Texts(const std::string& sql) {
    std::vector<std::string> texts;
    for (Recordset rows = Run(sql); !rows.eof(); rows.MoveNext()) {
        for (int field = 0; field < rows.FieldCount(); ++field) texts.push_back(rows.Text(field));
    }
    return texts;
}

}  // namespace ssq
