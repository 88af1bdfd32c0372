// The one connection to the database file, and the dialect that the panels speak.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "store/Recordset.h"

struct sqlite3;

namespace ssq {

class Connection {
  public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Opens an existing database file; it is never created. False and the store's text when the
    // file is missing, locked, damaged or no database; every later statement then fails with
    // that text.
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
    // in insertion order. Text behind the first statement is an error.
    bool OpenQuery(const std::string& sql, std::string& errorText, Recordset& recordset);

  private:
    struct Closer {
        void operator()(sqlite3* database) const;
    };

    std::unique_ptr<sqlite3, Closer> database_;
    std::string closedText_;
};

}  // namespace ssq
