// Makes the delivered database: ssq_make_database schema.sql draws.csv out.mdb
#include <sqlite3.h>

#include <algorithm>
#include <array>
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
#include "base/text.h"
#include "store/SqlConn.h"

namespace {

namespace fs = std::filesystem;

using Number = std::optional<std::int64_t>;

constexpr std::string_view kHeading = "issue,date,blue,reds,drawn,stake,pool,tickets,amounts";
constexpr std::size_t kFields = 9;
constexpr std::size_t kReds = 6;
constexpr std::size_t kPrizes = 6;
constexpr int kLargestRed = 33;
constexpr int kLargestBlue = 16;

struct Draw {
    std::int64_t issue = 0;
    std::string date;
    std::vector<std::int64_t> reds;
    std::int64_t blue = 0;
    std::vector<std::int64_t> drawn;  // empty while unknown
    Number stake;
    Number pool;
    std::array<Number, kPrizes> tickets;
    std::array<Number, kPrizes> amounts;
};

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

std::int64_t ReadNumber(const std::string& text) {
    constexpr std::size_t kLongest = 15;
    Require(!text.empty() && text.size() <= kLongest &&
                text.find_first_not_of("0123456789") == std::string::npos,
            "no number: " + text);
    return std::stoll(text);
}

Number ReadKnown(const std::string& text, std::string_view unknown) {
    return text == unknown ? std::nullopt : Number(ReadNumber(text));
}

std::vector<std::int64_t> ReadBalls(const std::string& text) {
    std::vector<std::int64_t> balls;
    for (const std::string& ball : ssq::Split(text, " ")) balls.push_back(ReadNumber(ball));
    return balls;
}

std::array<Number, kPrizes> ReadPrizes(const std::string& text) {
    std::array<Number, kPrizes> prizes;
    if (text.empty()) return prizes;
    const std::vector<std::string> items = ssq::Split(text, " ");
    Require(items.size() == kPrizes, "not six prizes: " + text);
    std::transform(items.begin(), items.end(), prizes.begin(),
                   [](const std::string& item) { return ReadKnown(item, "-"); });
    return prizes;
}

void CheckBalls(const Draw& draw) {
    const auto& reds = draw.reds;
    Require(reds.size() == kReds && reds.front() >= 1 && reds.back() <= kLargestRed &&
                std::adjacent_find(reds.begin(), reds.end(), std::greater_equal<>()) == reds.end(),
            "not six ascending reds");
    Require(draw.blue >= 1 && draw.blue <= kLargestBlue, "no blue ball");
    Require(draw.drawn.empty() ||
                std::is_permutation(draw.drawn.begin(), draw.drawn.end(), reds.begin(), reds.end()),
            "drawn order of other balls");
}

Draw ReadDraw(const std::string& line) {
    const std::vector<std::string> fields = ssq::Split(line, ",");
    Require(fields.size() == kFields, "not nine fields");
    Draw draw;
    draw.issue = ReadNumber(fields[0]);
    const auto date = ssq::ParseDate(fields[1]);
    Require(date && ssq::DateText(*date) == fields[1], "no date: " + fields[1]);
    Require(fields[0].size() == 7 && fields[0].substr(0, 4) == fields[1].substr(0, 4),
            "issue of another year");
    draw.date = fields[1];
    draw.blue = ReadNumber(fields[2]);
    draw.reds = ReadBalls(fields[3]);
    draw.drawn = ReadBalls(fields[4]);
    draw.stake = ReadKnown(fields[5], "");
    draw.pool = ReadKnown(fields[6], "");
    draw.tickets = ReadPrizes(fields[7]);
    draw.amounts = ReadPrizes(fields[8]);
    CheckBalls(draw);
    return draw;
}

std::vector<Draw> ReadDraws(const fs::path& file) {
    std::vector<std::string> lines = ssq::Split(ReadFile(file), "\n");
    Require(lines.size() > 2 && lines.front() == kHeading && lines.back().empty(),
            "heading or last line end missing in " + file.string());
    std::vector<Draw> draws;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
        try {
            Draw draw = ReadDraw(lines[i]);
            Require(
                draws.empty() || (draw.issue > draws.back().issue && draw.date > draws.back().date),
                "not behind the draw before");
            draws.push_back(std::move(draw));
        } catch (const std::runtime_error& error) {
            throw std::runtime_error("line " + std::to_string(i + 1) + ": " + error.what());
        }
    }
    return draws;
}

std::string JoinBalls(const std::vector<std::int64_t>& balls) {
    std::vector<std::string> texts;
    texts.reserve(balls.size());
    for (const std::int64_t ball : balls) texts.push_back(ssq::TwoDigits(ball));
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

void InsertDraw(Insert& insert, std::int64_t position, const Draw& draw) {
    const ssq::Date date = *ssq::ParseDate(draw.date);
    insert.Add(position).Add(draw.issue).Add(JoinBalls(draw.reds));
    for (const std::int64_t red : draw.reds) insert.Add(red);
    insert.Add(draw.blue)
        .Add(draw.date)
        .Add(ssq::Weekday(date))
        .Add(ReadNumber(ssq::LunarDay(ssq::LunarText(draw.date))))
        .Add(JoinBalls(draw.drawn))
        .Run();
}

bool HasPrizeData(const Draw& draw) {
    const auto known = [](const Number& number) { return number.has_value(); };
    return draw.stake || draw.pool ||
           std::any_of(draw.tickets.begin(), draw.tickets.end(), known) ||
           std::any_of(draw.amounts.begin(), draw.amounts.end(), known);
}

void InsertPrizes(Insert& insert, const Draw& draw) {
    insert.Add(draw.issue).Add(draw.pool).Add(draw.stake);
    for (const Number& tickets : draw.tickets) insert.Add(tickets);
    for (const Number& amount : draw.amounts) insert.Add(amount);
    Number sum = 0;
    for (std::size_t prize = 0; prize < kPrizes; ++prize) {
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

void WriteDatabase(const std::string& schema, const std::vector<Draw>& draws,
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
    for (const Draw& draw : draws) {
        InsertDraw(drawInsert, ++position, draw);
        InsertPrizes(prizeInsert, draw);
    }
    Execute(raw, "commit");
}

void MakeDatabase(const fs::path& schema, const fs::path& history, const fs::path& file) {
    Require(!fs::exists(file), file.string() + " exists and is not overwritten");
    const std::vector<Draw> draws = ReadDraws(history);
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
