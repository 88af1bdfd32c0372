// The blind test: a method is replayed over past draws, seeing for each only the draws before it.
// What it predicts for a draw depends on those and on its settings alone.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "chance/Chance.h"
#include "draws/BankerSettings.h"
#include "kill/KillSettings.h"
#include "tools/MDL_zdy_dm.h"
#include "ui/ResultGrid.h"
#include "workbench/FormulaStatistics.h"

namespace ssq {

class Run;
struct Session;

inline constexpr int kAllDraws = 0;

// The methods and their settings; banker and kill learning take those of their learners.
struct RedWrapTrial {
    bool operator==(const RedWrapTrial&) const = default;
};
struct BlueWrapTrial {
    bool operator==(const BlueWrapTrial&) const = default;
};
struct SingleFormulaTrial {
    FormulaCondition condition;
    int window = kAllDraws;  // draws on which the condition is counted, kAllDraws for all
    bool operator==(const SingleFormulaTrial&) const = default;
};
struct HeatTrial {
    int window = kAllDraws;  // draws that make the heat; kAllDraws for all before but the oldest
    int numbers = 6;         // how many are taken from the end of the order, 1 to 33
    bool coldest = false;    // from the cold end
    bool operator==(const HeatTrial&) const = default;
};
struct OwnFormulasTrial {
    std::vector<std::string> formulas;  // as LoadFormulaList reads them
    FormulaTarget target = FormulaTarget::kRed;
    double low = 1;  // hits that count as right
    double high = kRedsInDraw;
    bool operator==(const OwnFormulasTrial&) const = default;
};
struct PlanTrial {
    std::string plan;  // its text
    bool operator==(const PlanTrial&) const = default;
};

using TrialMethod = std::variant<BankerSettings, KillSettings, RedWrapTrial, BlueWrapTrial,
                                 SingleFormulaTrial, HeatTrial, OwnFormulasTrial, PlanTrial>;

// The names of the alternatives, in their order.
inline constexpr std::array<const char*, std::variant_size_v<TrialMethod>> kTrialMethods = {
    "胆码学习", "杀码学习", "智能围红",     "智能围蓝",
    "单条公式", "冷热号码", "自助胆码公式", "选号方案"};

struct TrialSettings {
    TrialMethod method;
    int draws = 100;  // so many of the newest are judged, kAllDraws for all
    bool operator==(const TrialSettings&) const = default;
};

// What is wrong with settings, as the user is told; empty when nothing is.
std::string TrialFault(const TrialSettings& settings);

enum class NotJudged { kJudged, kTooFewDraws, kNothingLearned, kNoNumbers, kBadFormula };

// "期数不够" and the like; empty for kJudged.
std::string NotJudgedText(NotJudged reason);

// One series of judgements.
struct TrialTrack {
    std::string name;
    bool counts = false;  // the score is a number of balls, else 1 for a hit and 0 for none
    // Headings of the columns that show what was predicted; a track without any shares those of the
    // first one.
    std::vector<std::string> picks;
};

// A draw in one track.
struct TrialMark {
    double score = 0;
    Odds odds;
    std::optional<double> stated;  // the rate that learning showed for its choice, percent
};

struct TrialRow {
    std::string issue;  // YYYYNNN
    std::string draw;   // the reds, and the blue where blues are predicted
    NotJudged reason = NotJudged::kJudged;
    std::vector<std::string> picks;  // one text for each heading of the tracks, none unless judged
    std::vector<TrialMark> marks;    // one for each track, none unless judged
};

struct TrialSum {
    Tally tally;
    std::optional<double> stated;  // average over the judged draws, percent
};

// What choosing the best of many shows on random histories, where there is nothing to find.
struct Luck {
    double best = 0;    // average of the best rate, good enough for the learner or not; percent
    double spread = 0;  // standard deviation of the same
    double found = 0;   // share of the histories on which the learner takes its choice
    double shown = 0;   // average of the best rate on those, percent; 0 while there are none
};

struct TrialResult {
    TrialSettings settings;
    std::vector<TrialTrack> tracks;
    std::vector<TrialRow> rows;  // oldest first
    // The prediction for the draw behind the newest: `issue` is empty where the newest draw has no
    // date; `draw` is empty, and the scores of its marks are 0.
    TrialRow next;
    std::vector<TrialSum> sums;      // one for each track
    std::optional<Luck> luck;        // of methods that choose the best of many, if any was judged
    std::vector<std::string> lines;  // the summary, each a sentence or more
    ResultGrid grid;
    std::string caption;  // of the group around lines, chart and grid
};

// Tests the method on the draws of cphm, which is read once; nothing is written. A draw is a step
// of the run, a random history is another. Nothing after telling the user why, or when the run was
// ended.
std::optional<TrialResult> RunBlindTest(Session& session, const TrialSettings& settings, Run& run);

// The course of a track over its judged draws: sums up to and with a row.
struct CoursePoint {
    std::size_t row = 0;  // of TrialResult::rows
    Tally tally;
};
std::vector<CoursePoint> CourseOf(const TrialResult& result, std::size_t track);

// What is told from the fifth of several tested settings on; empty before.
std::string ManyTestsLine(int tested);

inline constexpr const char* kChartTip = "中途走出色带很常见，看最右端就好。";
inline constexpr const char* kTrialFoot =
    "每期都是重新摇奖，哪一注的机会都一样。盲测只回答一件事：过去的规律，到了下一期还剩多少。";

}  // namespace ssq
