#include "kill/KillRecords.h"

#include <array>

#include "draws/Public_var.h"
#include "draws/queries.h"
#include "kill/KillSearch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr std::array<const char*, 7> kHeaders = {"序号",     "学习日期", "终止期数", "杀码个数",
                                                 "学习期数", "容错个数", "杀对概率"};
constexpr std::array<const char*, 7> kFields = {"id",  "txxDate", "endDate", "tDsGs",
                                                "tQs", "tRcGs",   "tRate"};
constexpr int kSizeCol = 3;
constexpr int kUnknownSize = 9999;

int KillsOf(std::int64_t dmgs) {
    return dmgs >= 0 && dmgs < kLargestKillSet ? 6 * static_cast<int>(dmgs + 1) : kUnknownSize;
}

}  // namespace

bool ReadKillRecords(Session& session, ResultGrid& grid) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select top 250 id,txxDate, endDate,tDsGs,tQs,tRcGs,tRate from tSrecord where "
                     "ttype=1 order by id desc",
                     rows)) {
        return false;
    }
    if (rows.eof()) {
        session.host.ShowMessage("还没有学习记录！");
        return false;
    }
    const int cols = static_cast<int>(kHeaders.size());
    grid = ResultGrid(rows.recordcount() + 1, cols, 1, 0);
    grid.SetAllRowHeights(300);
    grid.SetAllAlignments(Align::kCentre);
    grid.SetColWidths(0, cols - 1, 1000);
    grid.SetColWidth(1, 1500);
    for (int col = 0; col < cols; ++col) {
        grid.SetCell(0, col, kHeaders[static_cast<std::size_t>(col)]);
    }
    for (int row = 1; !rows.eof(); rows.MoveNext(), ++row) {
        for (int col = 0; col < cols; ++col) {
            grid.SetCell(row, col, rows.Text(kFields[static_cast<std::size_t>(col)]));
        }
        grid.SetCell(row, kSizeCol, std::to_string(KillsOf(rows.Int("tDsGs"))));
    }
    return true;
}

bool RestoreKillRecord(Session& session, const std::string& id) {
    Recordset record;
    if (!QueryOrTell(session, "Select *  from  tSrecord where id=" + id, record)) return false;
    if (record.eof()) {
        session.host.ShowMessage("无数据！");
        return false;
    }
    return ExecuteOrTell(session, "update  tDs set dsgs='" + record.Text("tGsStr") +
                                      "',dsrate=" + record.Text("tRate") + "  where dstype=1") &&
           ExecuteOrTell(session, "update  vqs set xxqs=" + record.Text("tQs") + ",dmgs=" +
                                      record.Text("tDsGs") + ",rc=" + record.Text("tRcGs") +
                                      ",setrate=" + record.Text("tRate") + "  where itype=1");
}

}  // namespace ssq
