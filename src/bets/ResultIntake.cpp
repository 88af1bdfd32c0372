#include "bets/ResultIntake.h"

#include <algorithm>
#include <array>

#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "bets/BetCheck.h"
#include "bets/BetFilter.h"
#include "bets/PlainLine.h"
#include "draws/Public_var.h"
#include "formulas/BMHZ.h"
#include "stats/HeatRanking.h"
#include "tools/FormulaFiles.h"
#include "tools/MDL_zdy_dm.h"
#include "wrap/BlueWrap.h"
#include "wrap/RedWrap.h"

namespace ssq {

namespace {

constexpr std::size_t kRatedDraws = 100;
constexpr double kLikely = 80;           // percent of all bets
constexpr std::size_t kBankerDraws = 4;  // that the positions of a banker formula count through
constexpr std::size_t kBlueDraws = 4;
constexpr const char* kHeatWindow = "30";  // draws, of a heat panel not open
constexpr const char* kTaken = "# 取入 ";

using Earlier = std::span<const Draw>;

const Draw& Back(Earlier earlier, std::size_t back) {
    return earlier[earlier.size() - back];
}

NumberSource KillSource(int place, int index) {
    const ShiftFormula formula = FormulaAt(index);
    return {.name = "杀码公式" + std::to_string(place) + "(" + FormulaKey(formula) + ")",
            .range = kAtMostOne,
            .isAgainst = true,
            .isLearned = true,
            .numbers = [formula](Earlier earlier) {
                const auto q = static_cast<std::size_t>(formula.q);
                return earlier.size() < q ? RedSet() : Back(earlier, q).set.Lowered(formula.b);
            }};
}

// Positions count from 0 through the reds of the last four draws, newest draw first.
NumberSource BankerSource(int place, std::vector<int> positions) {
    return {.name = "第" + std::to_string(place) + "组胆码",
            .range = kAtLeastOne,
            .isLearned = true,
            .numbers = [positions = std::move(positions)](Earlier earlier) {
                RedSet numbers;
                if (earlier.size() < kBankerDraws) return numbers;
                for (const int position : positions) {
                    const auto back = static_cast<std::size_t>(position / kRedsInDraw) + 1;
                    if (position < 0 || back > kBankerDraws) continue;
                    const std::vector<int> reds = IntList(Back(earlier, back).reds);
                    const auto ball = static_cast<std::size_t>(position % kRedsInDraw);
                    if (ball < reds.size()) numbers.Add(reds[ball]);
                }
                return numbers;
            }};
}

RedSet RedWrapNumbers(Earlier earlier) {
    RedSet numbers;
    if (earlier.size() < kWrapDepth) return numbers;
    std::array<PairSet, kWrapDepth> missed;
    for (std::size_t back = 1; back <= kWrapDepth; ++back) {
        missed[back - 1] = MissedPairs(Back(earlier, back).set);
    }
    const std::vector<int> wrap = RedWrap(missed);
    for (std::size_t i = 0; i < std::min<std::size_t>(wrap.size(), kWrapSize); ++i) {
        numbers.Add(wrap[i]);
    }
    return numbers;
}

RedSet BlueWrapNumbers(Earlier earlier) {
    if (earlier.size() < kBlueDraws) return {};
    return RedSet::FromList(BlueWrap(Back(earlier, 1).blue, Back(earlier, 2).blue,
                                     Back(earlier, 3).blue, Back(earlier, 4).blue)
                                .text);
}

// The texts of a column; none where the table cannot be read.
std::vector<std::string> StoredTexts(Session& session, const std::string& sql) {
    Recordset rows;
    std::string errorText;
    std::vector<std::string> texts;
    if (!session.connection.OpenQuery(sql, errorText, rows)) return texts;
    for (; !rows.eof(); rows.MoveNext()) texts.push_back(rows.Text(0));
    return texts;
}

std::string RangeText(CountRange range) {
    return range.high == kRedsInDraw ? ">=" + std::to_string(range.low)
                                     : std::to_string(range.low) + "~" + std::to_string(range.high);
}

std::string Remark(const std::string& name, double met, double draws, const std::string& chance) {
    return kTaken + name + " 近" + NumberText(draws) + "期" + RateText(met, draws) + "% 随机" +
           chance + "%";
}

// Of the last draws for which the source names something.
struct Record {
    double draws = 0;
    double met = 0;
    double chance = 0;  // percent, of any numbers that are as many, added up over the draws
};

double PureChance(const NumberSource& source, int named) {
    return source.isBlue ? Percent(named, kBlues)
                         : ChanceOf(named, source.range.value_or(LikelyRange(named)));
}

Record RecordOf(const NumberSource& source, Earlier draws) {
    Record record;
    for (std::size_t i = draws.size() - std::min(kRatedDraws, draws.size()); i < draws.size();
         ++i) {
        const RedSet numbers = source.numbers(draws.first(i));
        if (numbers.empty()) continue;
        ++record.draws;
        record.chance += PureChance(source, numbers.Count());
        const CountRange range = source.range.value_or(LikelyRange(numbers.Count()));
        const int hits = numbers.CountIn(draws[i].set);
        const bool met =
            source.isBlue ? numbers.Has(draws[i].blue) : hits >= range.low && hits <= range.high;
        if (met) ++record.met;
    }
    return record;
}

bool IsTaken(std::string_view line) {
    return Contains(line, kTaken);
}

bool HasBlues(std::string_view text) {
    return ReadBetPlan(text).plan.lines[static_cast<std::size_t>(BetStatement::kBlues)] != 0;
}

}  // namespace

std::vector<NumberSource> NumberSources(Session& session, const NumbersAtHand& atHand) {
    std::vector<NumberSource> sources;
    int place = 0;
    for (const std::string& text :
         StoredTexts(session, "Select top 3 gs from trate order by rate desc")) {
        // Formulas of the same rate come along; the recommendation takes three.
        if (place == 3) break;
        sources.push_back(BankerSource(++place, IntList(text)));
    }
    place = 0;
    for (const std::string& text :
         StoredTexts(session, "Select top 1 dsgs from tds where dstype=1")) {
        for (const int index : IntList(text)) {
            if (index >= 0 && index < kFormulaCount) sources.push_back(KillSource(++place, index));
        }
        break;
    }
    sources.push_back({.name = "18码围红", .numbers = RedWrapNumbers});
    const auto add = [&sources](const std::vector<NumberSource>& more) {
        sources.insert(sources.end(), more.begin(), more.end());
    };
    const auto* heat = atHand.Of("frmLengRe");
    add(heat ? *heat : HeatSources(kHeatWindow));
    sources.push_back(
        {.name = "围蓝", .range = kAtLeastOne, .isBlue = true, .numbers = BlueWrapNumbers});
    const auto* own = atHand.Of("ZDY_XDM");
    if (own) {
        add(*own);
    } else {
        for (const std::string& text : StoredTexts(session, kStoredFormulas)) {
            add(FormulaSources(FormulasOf(text), FormulaTarget::kRed, 1, kRedsInDraw));
        }
    }
    if (const auto* picks = atHand.Of("frmZST")) add(*picks);
    return sources;
}

std::vector<TakenResult> TakeResults(std::span<const NumberSource> sources, Earlier draws) {
    std::vector<TakenResult> taken;
    for (const NumberSource& source : sources) {
        const RedSet numbers = source.numbers(draws);
        if (numbers.empty()) continue;
        const Record record = RecordOf(source, draws);
        const CountRange range = source.range.value_or(LikelyRange(numbers.Count()));
        std::string remark = Remark(source.name, record.met, record.draws,
                                    RateText(record.chance / 100, record.draws));
        if (source.isLearned) remark += "（近期含学习用的期数）";
        std::string line = source.isBlue ? "蓝球 " : "";
        line += numbers.ToList();
        if (!source.isBlue) line += "/" + RangeText(range);
        line += "  " + remark;
        taken.push_back({source.name, source.isBlue, source.isAgainst, numbers, std::move(line)});
    }
    return taken;
}

double ChanceOf(int named, CountRange range) {
    double bets = 0;
    for (int count = range.low; count <= std::min(range.high, named); ++count) {
        if (kRedsInDraw - count > kReds - named) continue;
        bets +=
            static_cast<double>(Choose(named, count)) * Choose(kReds - named, kRedsInDraw - count);
    }
    return Percent(bets, kCombinationCount);
}

CountRange LikelyRange(int named) {
    const auto chance = [named](int count) { return ChanceOf(named, {count, count}); };
    CountRange range;
    for (int count = 1; count <= kRedsInDraw; ++count) {
        if (chance(count) > chance(range.low)) range = {count, count};
    }
    while (ChanceOf(named, range) < kLikely) {
        const double below = range.low > 0 ? chance(range.low - 1) : -1;
        const double above = range.high < kRedsInDraw ? chance(range.high + 1) : -1;
        if (below > above) {
            --range.low;
        } else {
            ++range.high;
        }
    }
    return range;
}

std::vector<std::string> TakeConditions(std::string_view text, Earlier draws, BetColumns& columns) {
    const BetPlanReading reading = ReadBetPlan(text);
    const BetPlan& plan = reading.plan;
    const bool isPlan = std::ranges::any_of(plan.lines, [](int line) { return line != 0; });
    if (!reading.errors.empty() || isPlan) return {};
    std::vector<RedSet> sets;
    for (const Draw& draw : draws) sets.push_back(draw.set);
    const auto history = CheckHistory(plan, sets, kRatedDraws, [](double, double) { return true; });
    std::vector<std::size_t> failures(plan.conditions.size());
    for (const BetVerdict& verdict : history->verdicts) {
        for (const std::size_t condition : verdict.failed) ++failures[condition];
    }
    const RedSet previous = sets.empty() ? RedSet() : sets.back();
    const auto meeting = BetFilter(plan, previous, columns).CountByCondition();
    const auto rated = static_cast<double>(history->verdicts.size());
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < plan.conditions.size(); ++i) {
        const std::string chance = RateText(meeting[i], kCombinationCount);
        const double met = rated - static_cast<double>(failures[i]);
        lines.push_back(plan.conditions[i].text + "  " + Remark("剪贴板", met, rated, chance));
    }
    return lines;
}

std::string WithTaken(const std::string& plan, std::span<const std::string> lines) {
    std::vector<std::string> result;
    for (const std::string_view line : SplitLines(plan)) {
        if (!IsTaken(line)) result.emplace_back(line);
    }
    while (!result.empty() && Trim(result.back()).empty()) result.pop_back();
    const std::string own = Join(result, "\n");
    const bool ownBlues = HasBlues(own);
    const std::vector<BetCondition> known = ReadBetPlan(own).plan.conditions;
    for (const std::string& line : lines) {
        const BetPlan added = ReadBetPlan(line).plan;
        const auto stands = [&known](const BetCondition& condition) {
            return std::ranges::any_of(known, [&condition](const BetCondition& other) {
                return other.attribute == condition.attribute && other.values == condition.values &&
                       other.numbers == condition.numbers;
            });
        };
        if (std::ranges::any_of(added.conditions, stands)) continue;
        result.push_back(ownBlues && HasBlues(line) ? "# " + line : line);
    }
    return Join(result, "\n");
}

}  // namespace ssq
