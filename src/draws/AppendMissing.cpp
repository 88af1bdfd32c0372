#include "draws/AppendMissing.h"

#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/WriteBatch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

enum class RowState { kMissing, kPresent, kFailed };

RowState StateOf(Session& session, const std::string& table, const std::string& issue) {
    Recordset rows;
    const std::string sql = "Select kjqh from " + table + " where kjqh=?";
    if (!QueryOrTell(session, sql, {issue}, rows)) return RowState::kFailed;
    return rows.eof() ? RowState::kMissing : RowState::kPresent;
}

}  // namespace

bool AppendMissing(Session& session, const std::string& table, std::int64_t after,
                   const AppendRow& append) {
    Recordset missing;
    if (!QueryOrTell(session,
                     "Select kjqh from cphm where kjqh>? except select kjqh from " + table +
                         " order by kjqh",
                     {after}, missing)) {
        return false;
    }
    if (missing.eof()) return true;
    const auto draws = ReadAllDraws(session);
    if (!draws) return false;
    WriteBatch batch(session.host, session.connection);
    std::size_t count = 0;  // of the draws up to the one at hand
    for (; !missing.eof(); missing.MoveNext()) {
        const std::string issue = missing.Text(0);
        while (count < draws->size() && (*draws)[count].issue != issue) ++count;
        if (count == draws->size()) break;
        if (!session.host.Yield()) return false;
        // Another run can have appended the row while the event loop had control.
        const RowState state = StateOf(session, table, issue);
        if (state == RowState::kFailed) return false;
        ++count;
        if (state == RowState::kMissing && !append(std::span(*draws).first(count))) return false;
    }
    return CommitOrTell(session, batch);
}

}  // namespace ssq
