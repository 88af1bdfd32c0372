// Makes the delivered database: ssq_make_database schema.sql draws.csv out.mdb
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/ConvertYlDate.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/DrawsCsv.h"
#include "store/SqlConn.h"

namespace {

namespace fs = std::filesystem;

using Number = std::optional<std::int64_t>;

struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

void Require(bool holds, const std::string& what) {
    if (!holds) throw std::runtime_error(what);
}

// Throws the store's text unless the result is the one wanted.
void RequireResult(int result, int wanted, sqlite3* database) {
    if (result != wanted) throw std::runtime_error(sqlite3_errmsg(database));
}

std::string ReadFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    Require(stream.good(), "cannot read " + file.string());
    return text;
}

std::vector<ssq::PublishedDraw> ReadDraws(const fs::path& file) {
    ssq::DrawsCsv csv = ssq::ReadDrawsCsv(ReadFile(file));
    for (const ssq::DrawsCsvFault& fault : csv.faults) {
        throw std::runtime_error("line " + std::to_string(fault.line) + ": " + fault.reason);
    }
    Require(!csv.draws.empty(), "no draws in " + file.string());
    return std::move(csv.draws);
}

std::string ListText(const ssq::DrawBalls& balls) {
    std::vector<std::string> texts;
    for (const int ball : balls) texts.push_back(ssq::TwoDigits(ball));
    return ssq::Join(texts, ",");
}

// An insert whose values are given one after the other.
class Insert {
  public:
    Insert(sqlite3* database, const std::string& table, const std::string& columns)
        : database_(database) {
        std::string marks = "?";
        for (std::size_t i = 1; i < ssq::Split(columns, ",").size(); ++i) marks += ",?";
        const std::string sql = "insert into " + table + "(" + columns + ") values(" + marks + ")";
        sqlite3_stmt* raw = nullptr;
        RequireResult(sqlite3_prepare_v2(database, sql.c_str(), -1, &raw, nullptr), SQLITE_OK,
                      database);
        statement_.reset(raw);
    }

    Insert& Add(const Number& value) {
        ++next_;
        if (value) sqlite3_bind_int64(statement_.get(), next_, *value);
        return *this;
    }

    // An empty text is an unknown one.
    Insert& Add(const std::string& text) {
        ++next_;
        if (!text.empty()) {
            sqlite3_bind_text(statement_.get(), next_, text.c_str(), -1, SQLITE_TRANSIENT);
        }
        return *this;
    }

    void Run() {
        Require(next_ == sqlite3_bind_parameter_count(statement_.get()), "values missing");
        RequireResult(sqlite3_step(statement_.get()), SQLITE_DONE, database_);
        sqlite3_reset(statement_.get());
        sqlite3_clear_bindings(statement_.get());
        next_ = 0;
    }

  private:
    sqlite3* database_;
    std::unique_ptr<sqlite3_stmt, Closer> statement_;
    int next_ = 0;
};

void InsertDraw(Insert& insert, std::int64_t position, const ssq::NewDraw& draw) {
    const ssq::Date date = *ssq::ParseDate(draw.date);
    insert.Add(position).Add(draw.issue).Add(ListText(draw.balls));
    for (const int red : draw.balls) insert.Add(red);
    insert.Add(draw.blue)
        .Add(draw.date)
        .Add(ssq::Weekday(date))
        .Add(ssq::WholePart(ssq::LunarDay(ssq::LunarText(draw.date))))
        .Add(draw.drawn)
        .Run();
}

bool HasPrizeData(const ssq::PublishedDraw& draw) {
    const auto known = [](const Number& number) { return number.has_value(); };
    return draw.stake || draw.pool || std::ranges::any_of(draw.tickets, known) ||
           std::ranges::any_of(draw.amounts, known);
}

void InsertPrizes(Insert& insert, const ssq::PublishedDraw& draw) {
    insert.Add(draw.draw.issue).Add(draw.pool).Add(draw.stake);
    for (const Number& tickets : draw.tickets) insert.Add(tickets);
    for (const Number& amount : draw.amounts) insert.Add(amount);
    Number sum = 0;
    for (std::size_t prize = 0; prize < ssq::kPrizeLevels; ++prize) {
        Number paid;
        if (draw.tickets[prize] && draw.amounts[prize]) {
            paid = *draw.tickets[prize] * *draw.amounts[prize];
        }
        insert.Add(paid);
        sum = sum && paid ? Number(*sum + *paid) : std::nullopt;
    }
    insert.Add(sum).Run();
}

void Execute(sqlite3* database, const std::string& sql) {
    RequireResult(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK,
                  database);
}

void WriteDatabase(const std::string& schema, const std::vector<ssq::PublishedDraw>& draws,
                   const fs::path& file) {
    sqlite3* raw = nullptr;
    const int code =
        sqlite3_open_v2(file.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, Closer> database(raw);
    Require(code == SQLITE_OK, "cannot make " + file.string());
    Execute(raw, "begin");
    Execute(raw, schema);
    Execute(raw, "pragma user_version=" + std::to_string(ssq::kDatabaseLayout));
    Insert drawInsert(raw, "cphm", "qid,kjqh,kjhm,a1,a2,a3,a4,a5,a6,a7,kjDate,kjWeek,nnDate,cqsx");
    Insert prizeInsert(raw, "cpjc",
                       "kjqh,xqjc,tze,zs1d,zs2d,zs3d,zs4d,zs5d,zs6d,mz1d,mz2d,mz3d,mz4d,mz5d,mz6d,"
                       "jj1d,jj2d,jj3d,jj4d,jj5d,jj6d,zfj");
    std::int64_t position = 0;
    for (const ssq::PublishedDraw& draw : draws) {
        InsertDraw(drawInsert, ++position, draw.draw);
        InsertPrizes(prizeInsert, draw);
    }
    Execute(raw, "commit");
}

void MakeDatabase(const fs::path& schema, const fs::path& history, const fs::path& file) {
    Require(!fs::exists(file), file.string() + " exists and is not overwritten");
    const std::vector<ssq::PublishedDraw> draws = ReadDraws(history);
    Require(HasPrizeData(draws.back()), "no prize data of the newest draw");
    fs::path unfinished = file;
    unfinished += ".part";
    fs::remove(unfinished);
    try {
        WriteDatabase(ReadFile(schema), draws, unfinished);
        fs::rename(unfinished, file);
    } catch (const std::exception&) {
        std::error_code ignored;
        fs::remove(unfinished, ignored);
        throw;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: ssq_make_database schema.sql draws.csv out.mdb\n";
        return 2;
    }
    try {
        MakeDatabase(argv[1], argv[2], argv[3]);
    } catch (const std::exception& error) {
        std::cerr << "ssq_make_database: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
