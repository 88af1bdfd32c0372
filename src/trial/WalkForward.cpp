#include "trial/WalkForward.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <utility>

#include "draws/public_fun.h"
#include "trial/Method.h"
#include "trial/TrialReport.h"
#include "ui/Run.h"

namespace ssq {

namespace {

// Draws that a method may look ahead over in one go: a few ms for the largest of them.
constexpr std::size_t kStretch = 64;

constexpr int kLuckHistories = 200;
// Any number would do; it is fixed so that the same settings always show the same luck.
constexpr std::uint32_t kLuckSeed = 20030223;

// Draws without past, each six equally likely.
History RandomHistory(std::mt19937& random, std::size_t size) {
    std::array<int, kReds> urn{};
    std::iota(urn.begin(), urn.end(), 1);
    std::vector<Draw> draws(size);
    for (Draw& draw : draws) {
        for (std::size_t ball = 0; ball < draw.balls.size(); ++ball) {
            // The remainder of 32 bits favours no ball by more than one in 100 million.
            std::swap(urn[ball], urn[ball + random() % (urn.size() - ball)]);
            draw.balls[ball] = urn[ball];
            draw.set.Add(urn[ball]);
        }
        std::ranges::sort(draw.balls);
    }
    return History(std::move(draws));
}

// The steps of a run: draws, then random histories.
struct Progress {
    Run& run;
    double total;
    double done = 0;

    bool Step() { return run.SlowStep(done++, total); }
};

struct Walk {
    const History& history;
    Method& method;
    Progress& progress;

    // Nothing when the run was ended.
    std::optional<Prediction> PredictionOf(std::size_t index) {
        if (!progress.Step()) return std::nullopt;
        const Before before = history.BeforeDraw(index);
        if (before.size() < method.DrawsNeeded()) {
            return Prediction{NotJudged::kTooFewDraws, {}, {}};
        }
        return method.Predict(before, progress.run);
    }

    // False when the run was ended.
    bool AddRows(std::size_t first, TrialResult& result) {
        for (std::size_t index = first; index <= history.size(); ++index) {
            if ((index - first) % kStretch == 0) {
                const std::size_t last = std::min(index + kStretch - 1, history.size());
                method.LookAhead(history.BeforeDraw(last), last - index + 1);
            }
            auto prediction = PredictionOf(index);
            if (!prediction) return false;
            AddRow(index, std::move(*prediction), result);
        }
        return true;
    }

    void AddRow(std::size_t index, Prediction prediction, TrialResult& result) {
        TrialRow row;
        row.reason = prediction.reason;
        row.picks = std::move(prediction.picks);
        const bool isDrawn = index < history.size();
        for (const TrackPrediction& track : prediction.tracks) {
            row.marks.push_back(
                {isDrawn ? track.score(history[index]) : 0, track.odds, track.stated});
        }
        if (isDrawn) {
            row.issue = history[index].issue;
            row.draw = method.Shown(history[index]);
            result.rows.push_back(std::move(row));
        } else {
            const Draw& newest = history[index - 1];
            const auto next = IssueAfter(newest.issue, newest.date);
            if (next) row.issue = std::to_string(*next);
            result.next = std::move(row);
        }
    }
};

std::vector<TrialSum> SumsOf(const TrialResult& result) {
    std::vector<TrialSum> sums(result.tracks.size());
    for (std::size_t track = 0; track < sums.size(); ++track) {
        double stated = 0;
        bool isStated = false;
        for (const TrialRow& row : result.rows) {
            if (row.marks.empty()) continue;
            const TrialMark& mark = row.marks[track];
            sums[track].tally.Add(mark.score, mark.odds);
            isStated = mark.stated.has_value();
            stated += mark.stated.value_or(0);
        }
        if (isStated) sums[track].stated = stated / sums[track].tally.draws;
    }
    return sums;
}

std::optional<Luck> LuckWith(const TrialMethod& settings, std::size_t draws, Progress& progress) {
    const std::unique_ptr<Method> method = MakeMethod(settings);
    const auto* single = std::get_if<SingleFormulaTrial>(&settings);
    const bool takesAll = single != nullptr && single->window == kAllDraws;
    const std::size_t size =
        takesAll ? std::max(draws, method->DrawsNeeded()) : method->DrawsNeeded();
    std::mt19937 random(kLuckSeed);
    std::vector<double> rates;
    double shown = 0;
    int found = 0;
    for (int i = 0; i < kLuckHistories; ++i) {
        if (!progress.Step()) return std::nullopt;
        const History history = RandomHistory(random, size);
        const auto choice = method->Choose(history.BeforeDraw(size), progress.run);
        if (!choice) return std::nullopt;
        rates.push_back(choice->rate);
        if (!choice->isTaken) continue;
        ++found;
        shown += choice->rate;
    }
    Luck luck;
    luck.best = std::accumulate(rates.begin(), rates.end(), 0.0) / kLuckHistories;
    double squares = 0;
    for (const double rate : rates) squares += (rate - luck.best) * (rate - luck.best);
    luck.spread = std::sqrt(squares / (kLuckHistories - 1));
    luck.found = static_cast<double>(found) / kLuckHistories;
    luck.shown = found > 0 ? shown / found : 0;
    return luck;
}

}  // namespace

std::optional<TrialResult> WalkForward(const History& history, const TrialSettings& settings,
                                       Run& run) {
    const std::unique_ptr<Method> method = MakeMethod(settings.method);
    const std::size_t judged =
        settings.draws == kAllDraws
            ? history.size()
            : std::min(history.size(), static_cast<std::size_t>(settings.draws));
    const bool chooses = ChoosesBest(settings.method);
    Progress progress{run, static_cast<double>(judged + 1 + (chooses ? kLuckHistories : 0))};
    TrialResult result;
    result.settings = settings;
    result.tracks = method->Tracks();
    if (!Walk{history, *method, progress}.AddRows(history.size() - judged, result)) {
        return std::nullopt;
    }
    result.sums = SumsOf(result);
    if (chooses) {
        result.luck = LuckWith(settings.method, history.size(), progress);
        if (!result.luck) return std::nullopt;
    }
    WriteReport(result);
    return result;
}

bool ChoosesBest(const TrialMethod& method) {
    return std::holds_alternative<BankerSettings>(method) ||
           std::holds_alternative<KillSettings>(method) ||
           std::holds_alternative<SingleFormulaTrial>(method);
}

std::optional<Luck> LuckOf(const TrialMethod& method, int draws, Run& run) {
    Progress progress{run, kLuckHistories};
    return LuckWith(method, static_cast<std::size_t>(std::max(draws, 0)), progress);
}

std::vector<CoursePoint> CourseOf(const TrialResult& result, std::size_t track) {
    std::vector<CoursePoint> course;
    Tally tally;
    for (std::size_t row = 0; row < result.rows.size(); ++row) {
        const auto& marks = result.rows[row].marks;
        if (marks.empty()) continue;
        tally.Add(marks[track].score, marks[track].odds);
        course.push_back({row, tally});
    }
    return course;
}

}  // namespace ssq
