#include "store/SqlConn.h"

#include <sqlite3.h>

#include <array>
#include <fstream>
#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"
#include "store/Dialect.h"

namespace ssq {

namespace {

constexpr int kBusyWaitMs = 500;
constexpr const char* kClosedText = "数据库没有打开！";

constexpr std::size_t kMostKept = 64;  // statements with values, far more than a run uses

using Statement = std::unique_ptr<sqlite3_stmt, StoreCloser>;

// Compiles the first statement of `sql`; `rest` is what stands behind it.
Statement Prepare(sqlite3* database, const std::string& sql, std::string_view& rest) {
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &raw, &tail);
    rest = tail ? std::string_view(tail, static_cast<std::size_t>(sql.data() + sql.size() - tail))
                : std::string_view();
    return Statement(raw);
}

bool IsTable(sqlite3* database, std::string_view name) {
    std::string_view rest;
    const Statement query =
        Prepare(database,
                "select 1 from sqlite_master where type='table' and name=?1 collate nocase", rest);
    if (!query) return false;
    sqlite3_bind_text(query.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    return sqlite3_step(query.get()) == SQLITE_ROW;
}

// The value lives until the statement has run.
void Bind(sqlite3_stmt* statement, int position, const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        sqlite3_bind_int64(statement, position, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
        sqlite3_bind_double(statement, position, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        sqlite3_bind_text(statement, position, text->data(), static_cast<int>(text->size()),
                          SQLITE_STATIC);
    } else {
        sqlite3_bind_null(statement, position);
    }
}

Value ReadColumn(sqlite3_stmt* row, int column) {
    switch (sqlite3_column_type(row, column)) {
        case SQLITE_INTEGER:
            return std::int64_t{sqlite3_column_int64(row, column)};
        case SQLITE_FLOAT:
            return sqlite3_column_double(row, column);
        case SQLITE_NULL:
            return std::monostate{};
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
            const int size = sqlite3_column_bytes(row, column);
            return std::string(text ? text : "", static_cast<std::size_t>(text ? size : 0));
        }
    }
}

// Steps through the statement and keeps all its rows. Returns SQLITE_DONE or an error's code.
int ReadRows(sqlite3_stmt* statement, Recordset& recordset) {
    // The first step compiles anew what a change of the schema has made stale.
    int code = sqlite3_step(statement);
    const int columns = sqlite3_column_count(statement);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column) {
        names.emplace_back(sqlite3_column_name(statement, column));
    }
    Values values;
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        for (int column = 0; column < columns; ++column) {
            values.push_back(ReadColumn(statement, column));
        }
    }
    if (code == SQLITE_DONE) recordset = Recordset(std::move(names), std::move(values));
    return code;
}

constexpr const char* kNotOpened = "数据库打不开";

// What keeps an existing file from being used.
struct Fault {
    std::string what;
    std::string detail = {};  // the store's text
    bool passes = false;      // another program holds the file for a while
};

Fault StoreFault(sqlite3* database) {
    const int code = sqlite3_errcode(database);
    const bool locked = code == SQLITE_BUSY || code == SQLITE_LOCKED;
    return {locked ? "数据库正被其他程序使用" : kNotOpened, sqlite3_errmsg(database), locked};
}

// Files too short to have a header count as new ones to the store, which would fill them.
bool HasHeader(const std::filesystem::path& file) {
    constexpr std::string_view kMagic("SQLite format 3\0", 16);
    std::array<char, kMagic.size()> start{};
    std::ifstream stream(file, std::ios::binary);
    return stream.read(start.data(), start.size()) &&
           std::string_view(start.data(), start.size()) == kMagic;
}

std::optional<Fault> FindFault(sqlite3* database, const std::filesystem::path& file) {
    if (!HasHeader(file)) return Fault{kNotOpened, sqlite3_errstr(SQLITE_NOTADB)};
    std::string_view rest;
    const Statement check = Prepare(database, "pragma quick_check(1)", rest);
    if (!check || sqlite3_step(check.get()) != SQLITE_ROW) return StoreFault(database);
    const std::string verdict = ValueText(ReadColumn(check.get(), 0));
    if (verdict != "ok") return Fault{kNotOpened, verdict};
    const Statement layout = Prepare(database, "pragma user_version", rest);
    if (!layout || sqlite3_step(layout.get()) != SQLITE_ROW) return StoreFault(database);
    if (sqlite3_column_int(layout.get(), 0) <= kDatabaseLayout) return std::nullopt;
    return Fault{"数据库由更新版本的程序建立，请先升级本程序"};
}

}  // namespace

void StoreCloser::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

void StoreCloser::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Connection::Connection() : closedText_(kClosedText) {}

Connection::~Connection() {
    Close();
}

bool Connection::Open(const std::filesystem::path& file, std::string& errorText) {
    Close();
    lockedFile_ = file;
    if (TryOpen(kBusyWaitMs)) return true;
    errorText = closedText_;
    return false;
}

bool Connection::TryOpen(int waitMs) {
    const std::filesystem::path file = std::exchange(lockedFile_, {});
    std::error_code unreadable;
    if (!std::filesystem::exists(file, unreadable)) {
        closedText_ = "找不到数据库文件：" + file.string();
        return false;
    }
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(file.string().c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    std::unique_ptr<sqlite3, StoreCloser> database(raw);
    if (raw) sqlite3_busy_timeout(raw, waitMs);
    const auto fault = code == SQLITE_OK ? FindFault(raw, file) : StoreFault(raw);
    if (fault) {
        if (fault->passes) lockedFile_ = file;
        closedText_ = fault->what + "：" + file.string();
        if (!fault->detail.empty()) closedText_ += "\r\n" + fault->detail;
        return false;
    }
    sqlite3_busy_timeout(raw, kBusyWaitMs);
    // A file that cannot be written can still be read, so a refused journal mode is no fault.
    sqlite3_exec(raw, "pragma journal_mode=wal", nullptr, nullptr, nullptr);
    sqlite3_exec(raw, "pragma synchronous=full", nullptr, nullptr, nullptr);
    RegisterFunctions(raw);
    database_ = std::move(database);
    return true;
}

void Connection::Close() {
    kept_.clear();
    if (InTransaction()) sqlite3_exec(database_.get(), "commit", nullptr, nullptr, nullptr);
    // Without its log the file can be opened where nothing may be written beside it.
    if (database_) {
        sqlite3_exec(database_.get(), "pragma journal_mode=delete", nullptr, nullptr, nullptr);
    }
    database_.reset();
    lockedFile_.clear();
    closedText_ = kClosedText;
}

bool Connection::InTransaction() const {
    return database_ && sqlite3_get_autocommit(database_.get()) == 0;
}

Connection::Statement Connection::Compile(const std::string& sql, std::string& errorText) const {
    sqlite3* database = database_.get();
    const std::string translated = TranslateStatement(
        Trim(sql), [database](std::string_view name) { return IsTable(database, name); });
    std::string_view rest;
    Statement statement = Prepare(database, translated, rest);
    if (!statement) {
        errorText =
            sqlite3_errcode(database) == SQLITE_OK ? "SQL语句为空！" : sqlite3_errmsg(database);
    } else if (!IsEmptyStatement(rest)) {
        errorText = "SQL语句结束后还有多余的字符！";
        statement.reset();
    }
    return statement;
}

sqlite3_stmt* Connection::Kept(const std::string& sql, std::string& errorText) {
    if (const auto found = kept_.find(sql); found != kept_.end()) return found->second.get();
    Statement statement = Compile(sql, errorText);
    if (!statement) return nullptr;
    if (kept_.size() >= kMostKept) kept_.clear();
    return kept_.emplace(sql, std::move(statement)).first->second.get();
}

bool Connection::OpenQuery(const std::string& sql, std::string& errorText, Recordset& recordset) {
    return OpenQuery(sql, {}, errorText, recordset);
}

bool Connection::OpenQuery(const std::string& sql, const Values& values, std::string& errorText,
                           Recordset& recordset) {
    recordset.Clear();
    if (!lockedFile_.empty()) TryOpen(0);
    if (!database_ || !refusal_.empty()) {
        errorText = database_ ? refusal_ : closedText_;
        return false;
    }
    const Statement single = values.empty() ? Compile(sql, errorText) : Statement();
    sqlite3_stmt* statement = values.empty() ? single.get() : Kept(sql, errorText);
    if (!statement) return false;
    if (sqlite3_bind_parameter_count(statement) != static_cast<int>(values.size())) {
        errorText = "SQL语句的参数个数不正确！";
        return false;
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        Bind(statement, static_cast<int>(i) + 1, values[i]);
    }
    const bool done = ReadRows(statement, recordset) == SQLITE_DONE;
    if (!done) errorText = sqlite3_errmsg(database_.get());
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    return done;
}

}  // namespace ssq
