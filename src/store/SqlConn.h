// The one connection to the database file, and the dialect that the panels speak.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>

#include "store/Recordset.h"

struct sqlite3;
struct sqlite3_stmt;

namespace ssq {

// The layout of the tables, kept as user_version. The maker of the delivered database writes it;
// files from before it was written have 0.
inline constexpr int kDatabaseLayout = 1;

// Ends what the store gave out.
struct StoreCloser {
    void operator()(sqlite3* database) const;
    void operator()(sqlite3_stmt* statement) const;
};

class Connection {
  public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Opens an existing database file; it is never created. False and a text, which ends with the
    // store's own, when the file is missing, locked, damaged, of a newer layout or no database
    // (which an empty one is not); every later statement then fails with that text. A file that
    // is only locked is tried again at each statement.
    bool Open(const std::filesystem::path& file, std::string& errorText);

    // Commits what is open; every later statement fails with a text that says so.
    void Close();

    bool isOpen() const { return database_ != nullptr; }
    bool InTransaction() const;

    // Runs one statement. A statement that yields rows sets `recordset`; one that yields none
    // leaves it empty and still returns true. On an error: false, the store's own text in
    // `errorText`, an empty `recordset`; nothing is shown.
    // The dialect: `select [top N]`, also inside `insert ... select`; the functions mid, int and
    // day; the operator mod; names without regard to case. Rows that tie on the sort key come
    // in insertion order, and `top` returns the rows that tie with the last one, too. Text behind
    // the first statement is an error.
    bool OpenQuery(const std::string& sql, std::string& errorText, Recordset& recordset);

    // The same with one value for each "?" of the text, in their order: for what repeats, since
    // the statement is kept compiled, and for any text that comes from outside or was stored.
    //   OpenQuery("update cphm set cqsx=? where kjqh=?", {order, issue}, errorText, recordset)
    bool OpenQuery(const std::string& sql, const Values& values, std::string& errorText,
                   Recordset& recordset);

    // Every statement fails with this text from now on; an empty text ends that. A WriteBatch so
    // stops the run whose writes could not reach the disk.
    void RefuseStatements(std::string text) { refusal_ = std::move(text); }
    const std::string& refusal() const { return refusal_; }

  private:
    using Statement = std::unique_ptr<sqlite3_stmt, StoreCloser>;

    // Waits up to `waitMs` while another program has locked the file.
    bool TryOpen(int waitMs);
    // Nothing, with the fault as text, when the text is not one statement.
    Statement Compile(const std::string& sql, std::string& errorText) const;
    // Compiled before or now; null with the fault as text.
    sqlite3_stmt* Kept(const std::string& sql, std::string& errorText);

    std::unique_ptr<sqlite3, StoreCloser> database_;
    std::unordered_map<std::string, Statement> kept_;  // ends before the database does
    std::filesystem::path lockedFile_;                 // to be tried again
    std::string closedText_;
    std::string refusal_;
};

}  // namespace ssq
