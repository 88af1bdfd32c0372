#include "banker/LearningRecords.h"

#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr std::array<const char*, 5> kHeaders = {"学习时间", "学习期数", "第一组命中", "第二组命中",
                                                 "第三组命中"};

LearningRecord ReadRecord(const Recordset& row) {
    LearningRecord record;
    record.rqs = row.Text("rqs");
    for (std::size_t i = 0; i < record.best.size(); ++i) {
        const std::string prefix = "r" + std::to_string(i + 1);
        record.best[i] = {row.Text(prefix + "gs"), row.Text(prefix + "mz")};
    }
    return record;
}

}  // namespace

bool ReadLearningRecords(Session& session, ResultGrid& grid, std::vector<LearningRecord>& records) {
    Recordset rows;
    if (!QueryOrTell(
            session,
            "Select rdate,rqs,r1mz,r2mz,r3mz,r1gs,r2gs,r3gs from xxjl  order by rdate desc",
            rows)) {
        return false;
    }
    const int cols = static_cast<int>(kHeaders.size());
    grid = ResultGrid(rows.recordcount() + 1, cols, 1, 0);
    grid.SetAllAlignments(Align::kCentre);
    grid.SetAllRowHeights(300);
    grid.SetColWidths(0, cols - 1, 1200);
    grid.SetColWidth(0, 1800);
    for (int col = 0; col < cols; ++col) {
        grid.SetCell(0, col, kHeaders[static_cast<std::size_t>(col)]);
    }
    records.clear();
    for (int row = 1; !rows.eof(); rows.MoveNext(), ++row) {
        for (int col = 0; col < cols; ++col) grid.SetCell(row, col, rows.Text(col));
        records.push_back(ReadRecord(rows));
    }
    return true;
}

bool RestoreLearningRecord(Session& session, const LearningRecord& record) {
    if (!ExecuteOrTell(session, "update vqs set xxqs=" + record.rqs) ||
        !ExecuteOrTell(session, "delete from trate")) {
        return false;
    }
    for (const LearnedFormula& formula : record.best) {
        if (!ExecuteOrTell(session, "insert into trate(gs,rate) values('" + formula.gs + "'," +
                                        formula.rate + ")")) {
            return false;
        }
    }
    session.host.ShowMessage("已还原到选中的设置！");
    return true;
}

}  // namespace ssq
