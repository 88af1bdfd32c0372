#include "store/WriteBatch.h"

#include "store/SqlConn.h"

namespace ssq {

WriteBatch::WriteBatch(Host& host, Connection& connection)
    : host_(host),
      connection_(connection),
      isOver_(connection.InTransaction() || !connection.refusal().empty()) {
    if (isOver_) return;
    host_.AddPumpListener(this);
    Begin();
}

WriteBatch::~WriteBatch() {
    End();
}

bool WriteBatch::Commit(std::string& errorText) {
    const bool isInner = isOver_;
    End();
    errorText = isInner ? connection_.refusal() : failure_;
    return errorText.empty();
}

// A run inside the pump that has no batch of its own pumps for this listener, too.
void WriteBatch::BeforePump() {
    if (pumps_++ == 0) Flush();
}

void WriteBatch::AfterPump() {
    if (--pumps_ > 0) return;
    if (failure_.empty()) {
        Begin();
    } else {
        connection_.RefuseStatements(failure_);
    }
}

void WriteBatch::Begin() {
    // Where this fails the statements stand alone.
    std::string errorText;
    Recordset nothing;
    isOpen_ = connection_.OpenQuery("begin", errorText, nothing);
}

void WriteBatch::Flush() {
    connection_.RefuseStatements({});
    // A connection that was closed has committed.
    if (!isOpen_ || !connection_.isOpen()) return;
    isOpen_ = false;
    // A statement that met a full disk can have ended the transaction.
    failure_ = "写入数据库失败，部分数据没有保存！";
    Recordset nothing;
    if (connection_.InTransaction() && connection_.OpenQuery("commit", failure_, nothing)) {
        failure_.clear();
    }
    std::string ignored;
    if (connection_.InTransaction()) connection_.OpenQuery("rollback", ignored, nothing);
}

void WriteBatch::End() {
    if (isOver_) return;
    isOver_ = true;
    Flush();
    host_.RemovePumpListener(this);
}

}  // namespace ssq
