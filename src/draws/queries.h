// Statements that tell the user when they fail.
#pragma once

#include <string>

#include "store/Recordset.h"

namespace ssq {

class Transaction;
class WriteBatch;
struct Session;

// Opens data/ssq.mdb in the user's folder; shows the connection's text when that fails, and the
// program goes on.
void OpenDatabase(Session& session);

// Shows what failed, such as "读取数据失败", and behind it the store's own text. A text of this
// program's, which is Chinese, stands alone.
void TellStoreFault(Session& session, const std::string& what, const std::string& errorText);

// OpenQuery that tells the user: false after TellStoreFault, which it leaves out while the program
// starts without a database. The first statement that gets through to a database locked before
// reads LatestIssue and DrawCount.
bool QueryOrTell(Session& session, const std::string& sql, Recordset& recordset);

// The same with one value for each "?" of the text, in their order:
//   QueryOrTell(session, "Select gs from xxjl where id=?", {id}, rows)
// Whole numbers, decimals, texts and std::monostate (null) are values. Text from outside or from
// the store is always given so, never pasted.
bool QueryOrTell(Session& session, const std::string& sql, const Values& values,
                 Recordset& recordset);

// The same for a statement whose rows are not wanted.
bool ExecuteOrTell(Session& session, const std::string& sql, const Values& values = {});

// Ends the batch; false after TellStoreFault.
bool CommitOrTell(Session& session, WriteBatch& batch);

// The same for a transaction.
bool CommitOrTell(Session& session, Transaction& transaction);

// Whether `Select count(*)` from the table succeeds. On failure the user is told only when the
// error text does not name the table.
bool TableExists(Session& session, const std::string& name);

}  // namespace ssq
