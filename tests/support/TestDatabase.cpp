#include "support/TestDatabase.h"

#include <sqlite3.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Draw.h"
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
    NewDraw draw;
    draw.issue = issue;
    draw.date = date;
    draw.blue = blue;
    draw.drawn = drawn;
    std::size_t ball = 0;
    for (const std::string& red : Split(reds, ",")) {
        draw.balls.at(ball++) = static_cast<int>(WholePart(red));
    }
    std::string errorText;
    if (!InsertDraw(session_.connection, draw, errorText)) throw std::runtime_error(errorText);
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
