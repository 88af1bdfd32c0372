#include "trial/WalkForward.h"

#include <algorithm>
#include <utility>

#include "draws/public_fun.h"
#include "trial/Method.h"

namespace ssq {

namespace {

// Draws that a method may look ahead over in one go: a few ms for the largest of them.
constexpr std::size_t kStretch = 64;

struct Walk {
    const History& history;
    Method& method;
    TrialProgress& progress;

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

}  // namespace

std::size_t JudgedDraws(const History& history, const TrialSettings& settings) {
    return settings.draws == kAllDraws
               ? history.size()
               : std::min(history.size(), static_cast<std::size_t>(settings.draws));
}

std::optional<TrialResult> WalkForward(const History& history, const TrialSettings& settings,
                                       TrialProgress& progress) {
    const std::unique_ptr<Method> method = MakeMethod(settings.method);
    TrialResult result;
    result.settings = settings;
    result.tracks = method->Tracks();
    Walk walk{history, *method, progress};
    if (!walk.AddRows(history.size() - JudgedDraws(history, settings), result)) return std::nullopt;
    result.sums = SumsOf(result);
    return result;
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
