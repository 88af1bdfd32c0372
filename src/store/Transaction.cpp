#include "store/Transaction.h"

#include <utility>

#include "store/SqlConn.h"

namespace ssq {

Transaction::Transaction(Connection& connection) : connection_(connection) {
    Recordset nothing;
    isOpen_ = connection_.OpenQuery("begin", errorText_, nothing);
}

Transaction::~Transaction() {
    TakeBack();
}

void Transaction::Execute(const std::string& sql, const Values& values) {
    if (!errorText_.empty()) return;
    Recordset nothing;
    connection_.OpenQuery(sql, values, errorText_, nothing);
}

bool Transaction::Commit() {
    Execute("commit");
    TakeBack();
    return errorText_.empty();
}

void Transaction::TakeBack() {
    if (!std::exchange(isOpen_, false) || !connection_.InTransaction()) return;
    std::string ignored;
    Recordset nothing;
    connection_.OpenQuery("rollback", ignored, nothing);
}

}  // namespace ssq
