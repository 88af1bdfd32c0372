// A method of the blind test: from the draws before a draw to a prediction that can be judged.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "trial/BlindTest.h"
#include "trial/History.h"

namespace ssq {

// What is predicted in one track.
struct TrackPrediction {
    Odds odds;
    std::function<double(const Draw&)> score;  // of the draw predicted
    std::optional<double> stated;              // see TrialMark
};

struct Prediction {
    NotJudged reason = NotJudged::kJudged;
    std::vector<std::string> picks;       // see TrialRow
    std::vector<TrackPrediction> tracks;  // one for each of the method's; empty unless kJudged
};

// The best rate that choosing finds, good enough for the learner or not.
struct BestChoice {
    double rate = 0;  // percent
    bool isTaken = false;
};

// One is made for each history: what it has counted for one draw may serve it at the next.
class Method {
  public:
    virtual ~Method() = default;

    virtual std::vector<TrialTrack> Tracks() const = 0;

    // The fewest draws before a draw that it is predicted from.
    virtual std::size_t DrawsNeeded() const = 0;

    // How many of so many draws before a draw are looked at.
    virtual std::size_t DrawsUsed(std::size_t /*before*/) const { return DrawsNeeded(); }

    // Of a view of at least DrawsNeeded; nothing when the run was ended.
    virtual std::optional<Prediction> Predict(const Before& before, Run& run) = 0;

    // Told before the `views` draws are predicted of which the newest sees `newest`: what one pass
    // can do for all of them.
    virtual void LookAhead(const Before& /*newest*/, std::size_t /*views*/) {}

    // What the method aims at in a draw, as its row shows it.
    virtual std::string Shown(const Draw& draw) const { return draw.reds; }

    // Of methods that choose the best of many; nothing for others and when the run was ended.
    virtual std::optional<BestChoice> Choose(const Before& /*before*/, Run& /*run*/) {
        return std::nullopt;
    }
};

// Of settings without fault.
std::unique_ptr<Method> MakeMethod(const TrialMethod& settings);

// Each in the file of its kind.
std::unique_ptr<Method> MakeMethod(const BankerSettings& settings);
std::unique_ptr<Method> MakeMethod(const KillSettings& settings);
std::unique_ptr<Method> MakeMethod(const RedWrapTrial& settings);
std::unique_ptr<Method> MakeMethod(const BlueWrapTrial& settings);
std::unique_ptr<Method> MakeMethod(const SingleFormulaTrial& settings);
std::unique_ptr<Method> MakeMethod(const HeatTrial& settings);
std::unique_ptr<Method> MakeMethod(const OwnFormulasTrial& settings);
std::unique_ptr<Method> MakeMethod(const PlanTrial& settings);

// Predictions in tracks over one set of reds.
RedSet RedSetOf(std::span<const int> numbers);
std::string TwoDigitList(std::span<const int> numbers);
TrackPrediction HitWhen(double chance, std::function<bool(const Draw&)> isHit);

}  // namespace ssq
