// The blind test over past draws: the plain walk, which learns anew before each draw by the rule on
// plain numbers, against the one on masks that scores bankers of many draws in one pass.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "Ratio.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Draw.h"
#include "support/TestDatabase.h"
#include "trial/WalkForward.h"
#include "ui/Run.h"

namespace {

using ssq::BankerSettings;
using ssq::Draw;
using ssq::KillSettings;
using ssq::SingleFormulaTrial;

// Newest first.
using Past = std::vector<Draw>;

// What is predicted for a draw; nothing where nothing is learned.
using Picks = std::vector<std::string>;

int DrawnOf(const std::vector<int>& numbers, const Draw& draw) {
    int count = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto begin = numbers.begin();
        const auto here = begin + static_cast<std::ptrdiff_t>(i);
        if (std::find(begin, here, numbers[i]) == here && draw.Has(numbers[i])) ++count;
    }
    return count;
}

std::string Text(const std::vector<int>& numbers) {
    std::vector<std::string> items;
    for (const int number : numbers) items.push_back(ssq::TwoDigits(number));
    return ssq::Join(items, ",");
}

// All sets of `size` out of `items`, in dictionary order.
template <typename Visit>
void ForEachSet(const std::vector<int>& items, std::size_t size, const Visit& visit,
                std::vector<int> set = {}, std::size_t from = 0) {
    if (set.size() == size) return visit(set);
    for (std::size_t next = from; next < items.size(); ++next) {
        set.push_back(items[next]);
        ForEachSet(items, size, visit, set, next + 1);
        set.pop_back();
    }
}

int BallAt(const Past& past, std::size_t first, int position) {
    return past[first + static_cast<std::size_t>(position) / 6]
        .balls[static_cast<std::size_t>(position) % 6];
}

struct Rated {
    double rate;
    std::vector<int> formula;
};

// The best three formulas by a stable order of all that reach the threshold.
Picks PlainBankers(const Past& past, const BankerSettings& settings) {
    constexpr std::array kThresholds = {30.0, 40.0, 50.0, 70.0, 80.0};
    std::vector<int> positions;
    for (int position = 0; position < 24; ++position) {
        if (position != 22) positions.push_back(position);
    }
    std::vector<Rated> good;
    ForEachSet(
        positions, static_cast<std::size_t>(settings.dmgs), [&](const std::vector<int>& formula) {
            int rounds = 0;
            for (std::size_t round = 0; round <= static_cast<std::size_t>(settings.xxqs); ++round) {
                const bool isHit = std::any_of(formula.begin(), formula.end(), [&](int position) {
                    return past[round].Has(BallAt(past, round + 1, position));
                });
                rounds += isHit ? 1 : 0;
            }
            const double rate = ssq::Percent(rounds, settings.xxqs);
            if (rate >= kThresholds[static_cast<std::size_t>(settings.dmgs - 1)]) {
                good.push_back({rate, formula});
            }
        });
    if (good.size() < 3) return {};
    std::stable_sort(good.begin(), good.end(),
                     [](const Rated& left, const Rated& right) { return left.rate > right.rate; });
    Picks picks;
    for (std::size_t group = 0; group < 3; ++group) {
        std::vector<int> balls;
        for (const int position : good[group].formula) balls.push_back(BallAt(past, 0, position));
        picks.push_back(Text(balls));
    }
    return picks;
}

std::vector<int> ShiftedFrom(const Past& past, std::size_t target, int formula) {
    std::vector<int> numbers;
    for (const int ball : past[target + static_cast<std::size_t>(formula) / 13].balls) {
        const int lowered = ball - (formula % 13 + 1);
        numbers.push_back(lowered < 1 ? lowered + 33 : lowered);
    }
    return numbers;
}

// The hits of the 130 formulas on the newest draws; the one at `target` is hit from those behind.
std::vector<std::vector<int>> PlainHits(const Past& past, std::size_t draws) {
    std::vector<std::vector<int>> hits(130);
    for (int formula = 0; formula < 130; ++formula) {
        for (std::size_t target = 0; target < draws; ++target) {
            hits[static_cast<std::size_t>(formula)].push_back(
                DrawnOf(ShiftedFrom(past, target + 1, formula), past[target]));
        }
    }
    return hits;
}

Picks PlainKills(const Past& past, const KillSettings& settings) {
    const auto draws = static_cast<std::size_t>(settings.xxqs);
    const auto hits = PlainHits(past, draws);
    std::vector<int> formulas(130);
    for (int i = 0; i < 130; ++i) formulas[static_cast<std::size_t>(i)] = i;
    Rated best{0, {}};
    ForEachSet(formulas, static_cast<std::size_t>(settings.dmgs) + 1,
               [&](const std::vector<int>& set) {
                   int passes = 0;
                   for (std::size_t draw = 0; draw < draws; ++draw) {
                       int hit = 0;
                       int most = 0;
                       for (const int formula : set) {
                           const int own = hits[static_cast<std::size_t>(formula)][draw];
                           hit += own > 0 ? 1 : 0;
                           most = std::max(most, own);
                       }
                       passes += hit <= settings.rc && most <= 1 ? 1 : 0;
                   }
                   const double rate = ssq::Percent(passes, settings.xxqs);
                   if (rate >= settings.setRate && rate > best.rate) best = {rate, set};
               });
    if (best.formula.empty()) return {};
    std::vector<int> kills;
    for (const int formula : best.formula) {
        const std::vector<int> own = ShiftedFrom(past, 0, formula);
        kills.insert(kills.end(), own.begin(), own.end());
    }
    return {Text(kills)};
}

// Of the condition <=1 only.
Picks PlainSingle(const Past& past, const SingleFormulaTrial& settings) {
    const std::size_t draws = settings.window == ssq::kAllDraws
                                  ? past.size() - 11
                                  : static_cast<std::size_t>(settings.window);
    const auto hits = PlainHits(past, draws);
    std::ptrdiff_t most = 0;
    int best = 0;
    for (int formula = 0; formula < 130; ++formula) {
        const auto& own = hits[static_cast<std::size_t>(formula)];
        const auto held = std::count_if(own.begin(), own.end(), [](int hit) { return hit <= 1; });
        if (held > most) {
            most = held;
            best = formula;
        }
    }
    return {"Q" + std::to_string(best / 13 + 1) + "B" + std::to_string(best % 13 + 1),
            Text(ShiftedFrom(past, 0, best))};
}

// The plain walk: each draw from its own copy of the past.
template <typename Settings>
std::vector<Picks> PlainWalk(const std::vector<Draw>& history, const Settings& settings,
                             std::size_t judged,
                             Picks (*predict)(const Past& past, const Settings& settings)) {
    std::vector<Picks> all;
    for (std::size_t index = history.size() - judged; index <= history.size(); ++index) {
        Past past(history.begin(), history.begin() + static_cast<std::ptrdiff_t>(index));
        std::reverse(past.begin(), past.end());
        all.push_back(predict(past, settings));
    }
    return all;
}

struct Bench {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    const std::vector<Draw> draws = ssq::ReadAllDraws(database.session()).value();
    const ssq::History history{draws};
    bool checksOnly = false;

    template <typename Settings>
    void Compare(const std::string& what, const Settings& settings, std::size_t judged,
                 Picks (*predict)(const Past&, const Settings&)) {
        if (checksOnly) judged = std::min<std::size_t>(judged, 10);
        ssq::Run run(database.host());
        std::vector<Picks> plain;
        std::optional<ssq::TrialResult> result;
        const double plainSeconds =
            ssq::SecondsOf(1, [&] { plain = PlainWalk(draws, settings, judged, predict); });
        const double seconds = ssq::SecondsOf(3, [&] {
            ssq::TrialProgress progress{run, 0};
            result = ssq::WalkForward(history, {settings, static_cast<int>(judged)}, progress);
        });
        std::vector<ssq::TrialRow> rows = result.value().rows;
        rows.push_back(result->next);
        ssq::RequireEqual(rows.size() == plain.size(), what);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ssq::RequireEqual(rows[i].picks == plain[i], what + ", row " + std::to_string(i));
        }
        ssq::PrintRatio("blind test, " + what + ", " + std::to_string(judged) + " draws",
                        plainSeconds, seconds);
    }

    // From the click to the grid, with the luck of random histories.
    void Time(const std::string& what, const ssq::TrialMethod& method) {
        for (const int judged : {100, 500, ssq::kAllDraws}) {
            ssq::Run run(database.host());
            const double seconds = ssq::SecondsOf(1, [&] {
                const auto result = ssq::RunBlindTest(database.session(), {method, judged}, run);
                ssq::RequireEqual(result.has_value(), what);
            });
            std::printf("    %s, %d draws from click to grid: %.0f ms\n", what.c_str(),
                        judged == ssq::kAllDraws ? static_cast<int>(draws.size()) : judged,
                        seconds * 1e3);
        }
    }
};

}  // namespace

int main(int argc, char**) {
    Bench bench;
    bench.checksOnly = argc > 1;
    bench.Compare("1 banker at 30 draws", BankerSettings{30, 1}, 500, PlainBankers);
    bench.Compare("3 bankers at 30 draws", BankerSettings{30, 3}, 500, PlainBankers);
    bench.Compare("5 bankers at 10 draws", BankerSettings{10, 5}, 130, PlainBankers);
    bench.Compare("5 bankers at 100 draws", BankerSettings{100, 5}, 70, PlainBankers);
    bench.Compare("6 kills at 5 draws", KillSettings{5, 0, 0, 40}, 500, PlainKills);
    bench.Compare("12 kills at 10 draws", KillSettings{10, 1, 2, 90}, 500, PlainKills);
    bench.Compare("single formula at 100 draws", SingleFormulaTrial{{"<=", 1}, 100}, 500,
                  PlainSingle);
    bench.Compare("single formula at all draws", SingleFormulaTrial{{"<=", 1}}, 20, PlainSingle);
    if (bench.checksOnly) return 0;  // larger sets take the plain walk minutes where not optimised
    bench.Compare("18 kills at 10 draws", KillSettings{10, 2, 3, 90}, 50, PlainKills);
    bench.Compare("24 kills at 10 draws", KillSettings{10, 3, 4, 90}, 3, PlainKills);
    bench.Time("3 bankers at 30 draws", BankerSettings{30, 3});
    bench.Time("5 bankers at 10 draws", BankerSettings{10, 5});
    bench.Time("5 bankers at 100 draws", BankerSettings{100, 5});
    bench.Time("12 kills at 10 draws", KillSettings{10, 1, 2, 90});
    bench.Time("24 kills at 10 draws", KillSettings{10, 3, 4, 90});
    bench.Time("24 kills at 30 draws", KillSettings{30, 3, 2, 10});
    bench.Time("red wrap", ssq::RedWrapTrial{});
    bench.Time("blue wrap", ssq::BlueWrapTrial{});
    bench.Time("single formula at all draws", SingleFormulaTrial{{"<=", 1}});
    bench.Time("heat of all draws", ssq::HeatTrial{});
    bench.Time("own formulas", ssq::OwnFormulasTrial{{"a1+a2", "a3+7", "int(a7*2.5)"}});
    bench.Time("plan that looks back", ssq::PlanTrial{"红球 01-25\n和值 70~120\n重号 0~1"});
    return 0;
}
