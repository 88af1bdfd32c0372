#include "store/WriteBatch.h"

#include "app/Public_var.h"

namespace ssq {

WriteBatch::WriteBatch(Session& session)
    : session_(session), isInner_(session.connection.InTransaction()) {
    session_.host.AddPumpListener(this);
    Begin();
}

WriteBatch::~WriteBatch() {
    if (!isInner_) Commit();
    session_.host.RemovePumpListener(this);
    if (!commitError_.empty()) session_.host.ShowMessage(commitError_);
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
    if (!session_.connection.InTransaction()) {
        session_.connection.OpenQuery("begin", errorText, nothing);
    }
}

void WriteBatch::Commit() {
    if (!session_.connection.InTransaction()) return;
    std::string errorText;
    Recordset nothing;
    if (session_.connection.OpenQuery("commit", errorText, nothing)) return;
    commitError_ = errorText;
    if (session_.connection.InTransaction()) {
        session_.connection.OpenQuery("rollback", errorText, nothing);
    }
}

}  // namespace ssq
