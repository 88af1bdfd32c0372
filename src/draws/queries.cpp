#include "draws/queries.h"

#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "store/Transaction.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"

namespace ssq {

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
    if (!done && (isOpen || !session.isStarting)) session.host.ShowMessage(errorText);
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
    session.host.ShowMessage(errorText);
    return false;
}

bool CommitOrTell(Session& session, Transaction& transaction) {
    if (transaction.Commit()) return true;
    session.host.ShowMessage(transaction.errorText());
    return false;
}

bool TableExists(Session& session, const std::string& name) {
    std::string errorText;
    Recordset count;
    if (session.connection.OpenQuery("Select count(*) from " + name, errorText, count)) return true;
    if (!Contains(errorText, name)) session.host.ShowMessage(errorText);
    return false;
}

}  // namespace ssq
