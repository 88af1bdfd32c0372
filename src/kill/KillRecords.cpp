#include "kill/KillRecords.h"

#include <array>

#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "kill/KillSearch.h"
#include "store/Transaction.h"
#include "ui/ColumnTable.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kSizeCol = 3;

// How many numbers a set kills, from the field tDsGs.
std::string SizeText(const Recordset& record) {
    constexpr const char* kUnknown = "9999";
    const std::int64_t dmgs = record.Int("tDsGs");
    const bool known = !record.IsNull("tDsGs") && dmgs >= 0 && dmgs < kLargestKillSet;
    return known ? std::to_string(kRedsInDraw * (dmgs + 1)) : kUnknown;
}

}  // namespace

bool AddKillRecord(Session& session, const KillRecord& record) {
    return ExecuteOrTell(session,
                         "Insert into tSrecord(endDate,tQs,tDsGs,tRcGs,tRate,tGsStr,tType) "
                         "values(?,?,?,?,?,?,?)",
                         {record.endDate, record.tQs, record.tDsGs, record.tRcGs, record.tRate,
                          record.tGsStr, record.tType});
}

std::optional<ResultGrid> ReadKillRecords(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select top 250 id,txxDate, endDate,tDsGs,tQs,tRcGs,tRate from tSrecord where "
                     "ttype=1 order by id desc",
                     rows)) {
        return std::nullopt;
    }
    if (rows.eof()) {
        session.host.ShowMessage("还没有学习记录！");
        return std::nullopt;
    }
    static const ColumnTable kColumns = {{"序号", 1000},     {"学习日期", 1500}, {"终止期数", 1000},
                                         {"杀码个数", 1000}, {"学习期数", 1000}, {"容错个数", 1000},
                                         {"杀对概率", 1000}};
    ResultGrid grid = MakeGrid(kColumns, rows.recordcount() + 1, 1, 0, 300);
    for (int row = 1; !rows.eof(); rows.MoveNext(), ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            grid.SetCell(row, col, col == kSizeCol ? SizeText(rows) : rows.Text(col));
        }
    }
    return grid;
}

bool RestoreKillRecord(Session& session, std::int64_t id) {
    Recordset record;
    if (!QueryOrTell(session, "Select *  from  tSrecord where id=?", {id}, record)) return false;
    if (record.eof()) {
        session.host.ShowMessage("无数据！");
        return false;
    }
    Transaction all(session.connection);
    all.Execute("update  tDs set dsgs=?,dsrate=?  where dstype=1",
                {record.Field("tGsStr"), record.Field("tRate")});
    all.Execute(
        "update  vqs set xxqs=?,dmgs=?,rc=?,setrate=?  where itype=1",
        {record.Field("tQs"), record.Field("tDsGs"), record.Field("tRcGs"), record.Field("tRate")});
    return CommitOrTell(session, all);
}

}  // namespace ssq
