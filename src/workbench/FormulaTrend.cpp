#include "workbench/FormulaTrend.h"

#include "draws/Public_var.h"
#include "draws/queries.h"

namespace ssq {

namespace {

constexpr int kLevels = 7;
constexpr int kFirstShown = 1;
constexpr int kLastShown = 4;

std::string Title(const std::array<int, kLevels>& counters) {
    std::string title;
    for (int level = kFirstShown; level <= kLastShown; ++level) {
        if (!title.empty()) title += "，";
        title += "中" + std::to_string(level) + "=" +
                 std::to_string(counters[static_cast<std::size_t>(level)]) + "次";
    }
    return title;
}

}  // namespace

std::optional<TrendReport> FormulaTrend(Session& session, const std::string& key,
                                        const PeriodRange& range, int periods) {
    Recordset rows;
    if (!QueryOrTell(session,
                     "Select top " + std::to_string(periods) + "  " + key +
                         ",kjqh from bmhz where kjqh>=" + range.start + " and  kjqh<=" + range.end +
                         " order by kjqh asc",
                     rows)) {
        return std::nullopt;
    }
    TrendReport trend;
    std::array<int, kLevels> counters{};
    for (; !rows.eof(); rows.MoveNext()) {
        const std::int64_t hits = rows.Int(0);
        trend.labels.push_back(ShortIssue(rows.Text("kjqh")));
        trend.values.push_back(static_cast<double>(hits));
        if (hits >= 0 && hits < kLevels) ++counters[static_cast<std::size_t>(hits)];
    }
    trend.title = Title(counters);
    return trend;
}

}  // namespace ssq
