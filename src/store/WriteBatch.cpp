#include "store/WriteBatch.h"

#include "store/SqlConn.h"

namespace ssq {

WriteBatch::WriteBatch(Host& host, Connection& connection)
    : host_(host), connection_(connection), isInner_(connection.InTransaction()) {
    host_.AddPumpListener(this);
    Begin();
}

WriteBatch::~WriteBatch() {
    if (!isInner_) Commit();
    host_.RemovePumpListener(this);
    if (!commitError_.empty()) host_.ShowMessage(commitError_);
}

void WriteBatch::BeforePump() {
    Commit();
}

void WriteBatch::AfterPump() {
    Begin();
}

void WriteBatch::Begin() {
    // Where this fails the statements stand alone.
    std::string errorText;
    Recordset nothing;
    if (!connection_.InTransaction()) {
        connection_.OpenQuery("begin", errorText, nothing);
    }
}

void WriteBatch::Commit() {
    if (!connection_.InTransaction()) return;
    std::string errorText;
    Recordset nothing;
    if (connection_.OpenQuery("commit", errorText, nothing)) return;
    commitError_ = errorText;
    if (connection_.InTransaction()) {
        connection_.OpenQuery("rollback", errorText, nothing);
    }
}

}  // namespace ssq
