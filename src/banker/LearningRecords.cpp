#include "banker/LearningRecords.h"

#include "base/numbers.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "store/Transaction.h"
#include "ui/ColumnTable.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kFormulas = 3;

LearningRecord ReadRecord(const Recordset& row) {
    LearningRecord record{ToInt(row.Int("rqs")), {}};
    for (int i = 1; i <= kFormulas; ++i) {
        const std::string prefix = "r" + std::to_string(i);
        const auto formula = ParseFormula(row.Text(prefix + "gs"));
        const bool fits = formula && !row.IsNull(prefix + "mz") &&
                          (i == 1 || formula->size() == record.best.front().positions.size());
        if (!fits) return {record.xxqs, {}};
        record.best.push_back({*formula, row.Number(prefix + "mz")});
    }
    return record;
}

}  // namespace

std::optional<LearningRecords> ReadLearningRecords(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select rdate,rqs,r1mz,r2mz,r3mz,r1gs,r2gs,r3gs from xxjl  order by rdate "
                     "desc,id desc",
                     rows)) {
        return std::nullopt;
    }
    static const ColumnTable kColumns = {{"学习时间", 1800},
                                         {"学习期数", 1200},
                                         {"第一组命中", 1200},
                                         {"第二组命中", 1200},
                                         {"第三组命中", 1200}};
    LearningRecords log{MakeGrid(kColumns, rows.recordcount() + 1, 1, 0, 300), {}};
    for (int row = 1; !rows.eof(); rows.MoveNext(), ++row) {
        for (int col = 0; col < log.grid.cols(); ++col) log.grid.SetCell(row, col, rows.Text(col));
        log.records.push_back(ReadRecord(rows));
    }
    return log;
}

bool RestoreLearningRecord(Session& session, const LearningRecord& record) {
    if (record.best.empty() || record.xxqs < 1 || record.xxqs > kMostLearnPeriods) {
        session.host.ShowMessage("该学习记录不完整，不能还原！");
        return false;
    }
    const std::int64_t dmgs = std::ssize(record.best.front().positions);
    Transaction all(session.connection);
    all.Execute("update vqs set xxqs=?", {std::int64_t{record.xxqs}});
    all.Execute("update vqs set dmgs=? where itype=0", {dmgs});
    all.Execute("delete from trate");
    for (const ScoredFormula& formula : record.best) {
        all.Execute("insert into trate(gs,rate) values(?,?)",
                    {FormulaText(formula.positions), formula.rate});
    }
    if (!CommitOrTell(session, all)) return false;
    session.host.ShowMessage("已还原到选中的设置！");
    return true;
}

}  // namespace ssq
