#include "draws/queries.h"

#include "base/text.h"
#include "draws/Public_var.h"
#include "ui/Host.h"

namespace ssq {

void OpenDatabase(Session& session) {
    std::string errorText;
    if (!session.connection.Open(session.programFolder / "data" / "ssq.mdb", errorText)) {
        session.host.ShowMessage(errorText);
    }
}

bool QueryOrTell(Session& session, const std::string& sql, Recordset& recordset) {
    return QueryOrTell(session, sql, {}, recordset);
}

bool QueryOrTell(Session& session, const std::string& sql, const Values& values,
                 Recordset& recordset) {
    std::string errorText;
    if (session.connection.OpenQuery(sql, values, errorText, recordset)) return true;
    session.host.ShowMessage(errorText);
    return false;
}

bool ExecuteOrTell(Session& session, const std::string& sql, const Values& values) {
    Recordset nothing;
    return QueryOrTell(session, sql, values, nothing);
}

bool TableExists(Session& session, const std::string& name) {
    std::string errorText;
    Recordset count;
    if (session.connection.OpenQuery("Select count(*) from " + name, errorText, count)) return true;
    if (!Contains(errorText, name)) session.host.ShowMessage(errorText);
    return false;
}

}  // namespace ssq
