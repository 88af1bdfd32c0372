// Writes of which all reach the disk or none does.
#pragma once

#include <string>

#include "store/Recordset.h"

namespace ssq {

class Connection;

// What is executed counts once Commit has said so; everything else is taken back. The event loop
// must not get control, and no box may be shown, while a Transaction is open.
class Transaction {
  public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // Runs one statement, as OpenQuery does. After a failure nothing is executed any more.
    void Execute(const std::string& sql, const Values& values = {});

    // False when a statement failed or the disk refused; all of it is then taken back.
    [[nodiscard]] bool Commit();

    // The store's text of the first failure.
    const std::string& errorText() const { return errorText_; }

  private:
    void TakeBack();

    Connection& connection_;
    bool isOpen_;
    std::string errorText_;
};

}  // namespace ssq
