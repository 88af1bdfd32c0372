// The methods that learn nothing: the wraps, the heat, the user's own formulas and plan.
#include <algorithm>
#include <array>
#include <utility>

#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "bets/BetCheck.h"
#include "bets/BetFilter.h"
#include "stats/HeatRanking.h"
#include "trial/Method.h"
#include "ui/Run.h"
#include "wrap/BlueWrap.h"
#include "wrap/RedWrap.h"

namespace ssq {

namespace {

TrackPrediction CountOfReds(RedSet set) {
    return {OddsOfReds(set.Count()),
            [set](const Draw& draw) { return static_cast<double>(set.CountIn(draw.set)); },
            {}};
}

std::string WithBlue(const Draw& draw) {
    return draw.reds + " + " + TwoDigits(draw.blue);
}

class RedWrapMethod final : public Method {
  public:
    std::vector<TrialTrack> Tracks() const override {
        return {{"围住的红球", true, {"号码"}}, {"六个全围住", false, {}}};
    }

    std::size_t DrawsNeeded() const override { return kWrapDepth; }

    std::optional<Prediction> Predict(const Before& before, Run& /*run*/) override {
        const std::vector<int> wrap = RedWrapAfter(before.sets);
        if (wrap.empty()) return Prediction{NotJudged::kNoNumbers, {}, {}};
        const RedSet set = RedSetOf(wrap);
        return Prediction{NotJudged::kJudged,
                          {TwoDigitList(wrap)},
                          {CountOfReds(set),
                           HitWhen(ChanceOfHits(set.Count(), kRedsInDraw), [set](const Draw& draw) {
                               return set.CountIn(draw.set) == kRedsInDraw;
                           })}};
    }
};

class BlueWrapMethod final : public Method {
  public:
    std::vector<TrialTrack> Tracks() const override { return {{"围住蓝球", false, {"号码"}}}; }

    std::size_t DrawsNeeded() const override { return kDrawsInBlueWrap; }

    std::optional<Prediction> Predict(const Before& before, Run& /*run*/) override {
        const auto& draws = before.draws;
        const std::vector<std::string> items =
            ShownItems(BlueWrap(draws[0].blue, draws[1].blue, draws[2].blue, draws[3].blue));
        std::array<bool, kBlues + 1> named{};
        for (const std::string& item : items) {
            const std::int64_t blue = WholePart(item);
            if (blue >= 1 && blue <= kBlues) named[static_cast<std::size_t>(blue)] = true;
        }
        const auto count = static_cast<double>(std::ranges::count(named, true));
        if (count == 0) return Prediction{NotJudged::kNoNumbers, {}, {}};
        return Prediction{NotJudged::kJudged,
                          {Join(items, ",")},
                          {HitWhen(count / kBlues, [named](const Draw& draw) {
                              return draw.blue <= kBlues &&
                                     named[static_cast<std::size_t>(draw.blue)];
                          })}};
    }

    std::string Shown(const Draw& draw) const override { return WithBlue(draw); }
};

class HeatMethod final : public Method {
  public:
    explicit HeatMethod(const HeatTrial& settings) : settings_(settings) {}

    std::vector<TrialTrack> Tracks() const override {
        return {{"中的红球", true, {"号码"}}, {"至少中一个", false, {}}};
    }

    std::size_t DrawsNeeded() const override {
        // All but the oldest must leave one.
        return settings_.window == kAllDraws ? 2 : static_cast<std::size_t>(settings_.window);
    }

    std::optional<Prediction> Predict(const Before& before, Run& /*run*/) override {
        const std::size_t window =
            settings_.window == kAllDraws ? before.size() - 1 : DrawsNeeded();
        const HeatOrder order = HeatOrderOf(before.draws.first(window));
        const auto count = static_cast<std::size_t>(settings_.numbers);
        const auto numbers =
            std::span(order.numbers).subspan(settings_.coldest ? kReds - count : 0, count);
        const RedSet set = RedSetOf(numbers);
        return Prediction{
            NotJudged::kJudged,
            {TwoDigitList(numbers)},
            {CountOfReds(set), HitWhen(ChanceOfAnyHit(set.Count()), [set](const Draw& draw) {
                 return set.CountIn(draw.set) > 0;
             })}};
    }

  private:
    HeatTrial settings_;
};

class OwnFormulasMethod final : public Method {
  public:
    explicit OwnFormulasMethod(OwnFormulasTrial settings) : settings_(std::move(settings)) {}

    std::vector<TrialTrack> Tracks() const override { return {{"命中在范围内", false, {"号码"}}}; }

    std::size_t DrawsNeeded() const override { return 1; }

    std::optional<Prediction> Predict(const Before& before, Run& /*run*/) override {
        std::string errorText;
        const auto values =
            EvaluateFormulas(before.draws.front(), settings_.formulas, settings_.target, errorText);
        if (!values) return Prediction{NotJudged::kBadFormula, {}, {}};
        if (values->empty()) return Prediction{NotJudged::kNoNumbers, {}, {}};
        return Prediction{
            NotJudged::kJudged,
            {*values},
            {HitWhen(ChanceOfFormulaHits(*values, settings_.target, settings_.low, settings_.high),
                     [this, list = *values](const Draw& draw) {
                         const int hits = FormulaHits(draw, list, settings_.target);
                         return hits >= settings_.low && hits <= settings_.high;
                     })}};
    }

    std::string Shown(const Draw& draw) const override {
        return settings_.target == FormulaTarget::kBlue ? WithBlue(draw) : draw.reds;
    }

  private:
    OwnFormulasTrial settings_;
};

class PlanMethod final : public Method {
  public:
    explicit PlanMethod(const PlanTrial& settings) : plan_(ReadBetPlan(settings.plan).plan) {
        looksBack_ = std::ranges::any_of(plan_.conditions, [](const BetCondition& condition) {
            return condition.attribute >= 0 &&
                   BetAttributes()[static_cast<std::size_t>(condition.attribute)].looksBack;
        });
    }

    std::vector<TrialTrack> Tracks() const override { return {{"方案通过", false, {"剩下注数"}}}; }

    std::size_t DrawsNeeded() const override { return looksBack_ ? 1 : 0; }

    std::optional<Prediction> Predict(const Before& before, Run& /*run*/) override {
        const RedSet previous = looksBack_ ? before.sets.front() : RedSet();
        if (looksBack_ || remaining_ == kNotCounted) {
            remaining_ = BetFilter(plan_, previous, columns_).Remaining().Count();
        }
        return Prediction{NotJudged::kJudged,
                          {std::to_string(remaining_)},
                          {HitWhen(static_cast<double>(remaining_) / kCombinationCount,
                                   [this, previous](const Draw& draw) {
                                       return CheckBet(plan_, draw.set, previous).remains;
                                   })}};
    }

  private:
    static constexpr std::int32_t kNotCounted = -1;

    BetPlan plan_;
    bool looksBack_ = false;
    BetColumns columns_;
    std::int32_t remaining_ = kNotCounted;
};

}  // namespace

std::unique_ptr<Method> MakeMethod(const RedWrapTrial& /*settings*/) {
    return std::make_unique<RedWrapMethod>();
}

std::unique_ptr<Method> MakeMethod(const BlueWrapTrial& /*settings*/) {
    return std::make_unique<BlueWrapMethod>();
}

std::unique_ptr<Method> MakeMethod(const HeatTrial& settings) {
    return std::make_unique<HeatMethod>(settings);
}

std::unique_ptr<Method> MakeMethod(const OwnFormulasTrial& settings) {
    return std::make_unique<OwnFormulasMethod>(settings);
}

std::unique_ptr<Method> MakeMethod(const PlanTrial& settings) {
    return std::make_unique<PlanMethod>(settings);
}

}  // namespace ssq
