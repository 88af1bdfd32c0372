#include "store/WriteBatch.h"

#include <utility>

#include "app/Public_var.h"

namespace ssq {

WriteBatch::WriteBatch(Session& session) : session_(session) {
    session_.host.AddPumpListener(this);
    Begin();
}

WriteBatch::~WriteBatch() {
    Commit();
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
    // Where this fails the statements stand alone, or belong to the batch around this one.
    std::string errorText;
    Recordset nothing;
    isOpen_ = session_.connection.OpenQuery("begin", errorText, nothing);
}

void WriteBatch::Commit() {
    if (!std::exchange(isOpen_, false) || !session_.connection.isOpen()) return;
    std::string errorText;
    Recordset nothing;
    if (session_.connection.OpenQuery("commit", errorText, nothing)) return;
    commitError_ = errorText;
    session_.connection.OpenQuery("rollback", errorText, nothing);
}

}  // namespace ssq
