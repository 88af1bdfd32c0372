#include "draws/queries.h"

#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "store/Transaction.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr const char* kReadFailed = "读取数据失败";
constexpr const char* kWriteFailed = "保存数据失败";

bool OnlyReads(const std::string& sql) {
    return LowerCase(Trim(sql)).starts_with("select");
}

}  // namespace

void TellStoreFault(Session& session, const std::string& what, const std::string& errorText) {
    const bool isOurs = !errorText.empty() && static_cast<unsigned char>(errorText[0]) >= 0x80;
    session.host.ShowMessage(isOurs ? errorText : what + "：" + errorText);
}

void OpenDatabase(Session& session) {
    std::string errorText;
    if (!session.connection.Open(session.userFolder / "data" / "ssq.mdb", errorText)) {
        session.host.ShowMessage(errorText);
    }
}

bool QueryOrTell(Session& session, const std::string& sql, Recordset& recordset) {
    return QueryOrTell(session, sql, {}, recordset);
}

bool QueryOrTell(Session& session, const std::string& sql, const Values& values,
                 Recordset& recordset) {
    std::string errorText;
    const bool wasOpen = session.connection.isOpen();
    const bool done = session.connection.OpenQuery(sql, values, errorText, recordset);
    const bool isOpen = session.connection.isOpen();
    if (!done && (isOpen || !session.isStarting)) {
        TellStoreFault(session, OnlyReads(sql) ? kReadFailed : kWriteFailed, errorText);
    }
    if (isOpen && !wasOpen) RefreshLatestIssue(session);
    return done;
}

bool ExecuteOrTell(Session& session, const std::string& sql, const Values& values) {
    Recordset nothing;
    return QueryOrTell(session, sql, values, nothing);
}

bool CommitOrTell(Session& session, WriteBatch& batch) {
    std::string errorText;
    if (batch.Commit(errorText)) return true;
    TellStoreFault(session, kWriteFailed, errorText);
    return false;
}

bool CommitOrTell(Session& session, Transaction& transaction) {
    if (transaction.Commit()) return true;
    TellStoreFault(session, kWriteFailed, transaction.errorText());
    return false;
}

bool TableExists(Session& session, const std::string& name) {
    std::string errorText;
    Recordset count;
    if (session.connection.OpenQuery("Select count(*) from " + name, errorText, count)) return true;
    if (!Contains(errorText, name)) TellStoreFault(session, kReadFailed, errorText);
    return false;
}

}  // namespace ssq
