// The methods that choose the best of many: bankers, kills, and the single formula.
#include <algorithm>
#include <array>
#include <utility>

#include "banker/HighestRates.h"
#include "banker/PositionRates.h"
#include "base/numbers.h"
#include "kill/FormulaSet.h"
#include "kill/KillSearch.h"
#include "trial/Method.h"
#include "ui/Run.h"

namespace ssq {

namespace {

// The first draw of the table of hit counts is the twelfth on file.
constexpr std::size_t kDrawsBeforeTable = 11;

class BankerMethod final : public Method {
  public:
    explicit BankerMethod(const BankerSettings& settings) : settings_(settings) {}

    std::vector<TrialTrack> Tracks() const override {
        return {
            {"第一组", false, {"胆码"}}, {"第二组", false, {"胆码"}}, {"第三组", false, {"胆码"}}};
    }

    std::size_t DrawsNeeded() const override {
        return static_cast<std::size_t>(settings_.xxqs) + 1 + kDrawsInWindow;
    }

    void LookAhead(const Before& newest, std::size_t views) override {
        ahead_.clear();
        if (newest.size() < DrawsNeeded()) return;
        views = std::min(views, newest.size() - DrawsNeeded() + 1);
        ahead_ = HighestRates(newest.balls, views, settings_, kGroups);
        aheadOf_ = newest.size();
    }

    std::optional<Prediction> Predict(const Before& before, Run& /*run*/) override {
        const std::vector<ScoredFormula> best = Highest(before);
        if (!AreGood(best)) return Prediction{NotJudged::kNothingLearned, {}, {}};
        Prediction prediction;
        for (const ScoredFormula& formula : best) {
            const std::vector<int> bankers = BallsAt(formula.positions, before.balls);
            const RedSet set = RedSetOf(bankers);
            prediction.picks.push_back(TwoDigitList(bankers));
            prediction.tracks.push_back(
                HitWhen(ChanceOfAnyHit(set.Count()),
                        [set](const Draw& draw) { return set.CountIn(draw.set) > 0; }));
            prediction.tracks.back().stated = formula.rate;
        }
        return prediction;
    }

    std::optional<BestChoice> Choose(const Before& before, Run& /*run*/) override {
        const std::vector<ScoredFormula> best = Highest(before);
        return BestChoice{best.front().rate, AreGood(best)};
    }

  private:
    static constexpr int kGroups = 3;

    std::vector<ScoredFormula> Highest(const Before& before) const {
        const std::size_t place = aheadOf_ - before.size();
        if (before.size() <= aheadOf_ && place < ahead_.size()) return ahead_[place];
        return std::move(HighestRates(before.balls, 1, settings_, kGroups).front());
    }

    bool AreGood(const std::vector<ScoredFormula>& best) const {
        return best.back().rate >= GoodRate(settings_.dmgs);
    }

    BankerSettings settings_;
    std::vector<std::vector<ScoredFormula>> ahead_;  // before a draw and those before it
    std::size_t aheadOf_ = 0;                        // draws before the newest of them
};

class KillMethod final : public Method {
  public:
    explicit KillMethod(const KillSettings& settings) : settings_(settings) {}

    std::vector<TrialTrack> Tracks() const override {
        return {{"判定√", false, {"杀码"}}, {"全部杀对", false, {}}, {"每个杀码", true, {}}};
    }

    std::size_t DrawsNeeded() const override {
        return static_cast<std::size_t>(settings_.xxqs) + kDrawsBeforeTable;
    }

    std::optional<Prediction> Predict(const Before& before, Run& run) override {
        const KillSearchResult best = Search(before, settings_.setRate, run);
        if (!best.finished) return std::nullopt;
        if (best.formulas.empty()) return Prediction{NotJudged::kNothingLearned, {}, {}};
        const std::vector<int> kills = KillNumbers(best.formulas, before.balls);
        const RedSet set = RedSetOf(kills);
        const int count = set.Count();
        const auto atMost = [set, count](int wrong) {
            return HitWhen(ChanceOfHits(count, 0, wrong), [set, wrong](const Draw& draw) {
                return set.CountIn(draw.set) <= wrong;
            });
        };
        Prediction prediction{NotJudged::kJudged, {TwoDigitList(kills)}, {}};
        prediction.tracks = {atMost(settings_.rc),
                             atMost(0),
                             {OddsOfKills(count),
                              [set, count](const Draw& draw) {
                                  return static_cast<double>(count - set.CountIn(draw.set));
                              },
                              {}}};
        prediction.tracks.front().stated = best.rate;
        return prediction;
    }

    std::optional<BestChoice> Choose(const Before& before, Run& run) override {
        const KillSearchResult best = Search(before, 0, run);
        if (!best.finished) return std::nullopt;
        return BestChoice{best.rate, best.rate > 0 && best.rate >= settings_.setRate};
    }

  private:
    KillSearchResult Search(const Before& before, double rate, Run& run) const {
        return FindBestKillSet(HitsOf(before.sets, settings_.xxqs),
                               {settings_.dmgs + 1, settings_.rc, rate},
                               [&run](std::int64_t) { return run.Yield(); });
    }

    KillSettings settings_;
};

class SingleFormulaMethod final : public Method {
  public:
    explicit SingleFormulaMethod(const SingleFormulaTrial& settings)
        : window_(static_cast<std::size_t>(settings.window)),
          levels_(LevelsMeeting(settings.condition)) {}

    std::vector<TrialTrack> Tracks() const override {
        return {{"条件成立", false, {"公式", "号码"}}};
    }

    std::size_t DrawsNeeded() const override {
        return kDrawsBeforeTable + (window_ == kAllDraws ? 1 : window_);
    }

    std::size_t DrawsUsed(std::size_t before) const override {
        return window_ == kAllDraws ? before : DrawsNeeded();
    }

    std::optional<Prediction> Predict(const Before& before, Run& /*run*/) override {
        const auto [formula, held] = Best(before);
        if (held == 0) return Prediction{NotJudged::kNothingLearned, {}, {}};
        const std::vector<int> numbers = KillNumbers({&formula, 1}, before.balls);
        const RedSet set = RedSetOf(numbers);
        double chance = 0;
        for (int hits = 0; hits <= kRedsInDraw; ++hits) {
            if (Meets(hits)) chance += ChanceOfHits(set.Count(), hits);
        }
        Prediction prediction{
            NotJudged::kJudged, {FormulaKey(FormulaAt(formula)), TwoDigitList(numbers)}, {}};
        prediction.tracks.push_back(HitWhen(chance, [levels = levels_, set](const Draw& draw) {
            return levels[static_cast<std::size_t>(set.CountIn(draw.set))];
        }));
        prediction.tracks.front().stated = Percent(held, static_cast<double>(Rows(before)));
        return prediction;
    }

    std::optional<BestChoice> Choose(const Before& before, Run& /*run*/) override {
        const int held = Best(before).second;
        return BestChoice{Percent(held, static_cast<double>(Rows(before))), held > 0};
    }

  private:
    bool Meets(int hits) const { return levels_[static_cast<std::size_t>(hits)]; }

    // The rows of the table that count before a draw.
    std::size_t Rows(const Before& before) const {
        return window_ == kAllDraws ? before.size() - kDrawsBeforeTable : window_;
    }

    // The formula for which the condition held most often, and how often.
    std::pair<int, int> Best(const Before& before) {
        Count(before);
        const auto best = std::ranges::max_element(held_);  // the first of them
        return {static_cast<int>(best - held_.begin()), *best};
    }

    // A walk forward comes with one draw more each time, which is all that has to be counted then.
    void Count(const Before& before) {
        const std::size_t rows = Rows(before);
        if (before.size() == counted_ + 1) {
            AddRows(before, 0, 1, 1);
            if (window_ != kAllDraws) AddRows(before, rows, 1, -1);
        } else {
            held_.fill(0);
            AddRows(before, 0, static_cast<int>(rows), 1);
        }
        counted_ = before.size();
    }

    void AddRows(const Before& before, std::size_t first, int rows, int weight) {
        const HitMatrix hits = HitsOf(before.sets.subspan(first), rows);
        std::array<int, kReds + 1> added{};  // by hits
        for (std::size_t level = 0; level < levels_.size(); ++level) {
            if (levels_[level]) added[level] = weight;
        }
        for (int row = 0; row < rows; ++row) {
            for (int formula = 0; formula < kFormulaCount; ++formula) {
                held_[static_cast<std::size_t>(formula)] +=
                    added[static_cast<std::size_t>(hits.hits(row, formula))];
            }
        }
    }

    std::size_t window_;
    HitLevels levels_;
    std::array<int, kFormulaCount> held_{};
    std::size_t counted_ = 0;  // draws before the draw that held_ is of
};

}  // namespace

std::unique_ptr<Method> MakeMethod(const BankerSettings& settings) {
    return std::make_unique<BankerMethod>(settings);
}

std::unique_ptr<Method> MakeMethod(const KillSettings& settings) {
    return std::make_unique<KillMethod>(settings);
}

std::unique_ptr<Method> MakeMethod(const SingleFormulaTrial& settings) {
    return std::make_unique<SingleFormulaMethod>(settings);
}

}  // namespace ssq
