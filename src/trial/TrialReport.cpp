#include "trial/TrialReport.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/public_fun.h"
#include "ui/ColumnTable.h"
#include "ui/palette.h"

namespace ssq {

namespace {

constexpr int kHeadingRows = 2;
constexpr int kFixedCols = 2;
constexpr Rgb kPaleInk{140, 140, 140};  // legible on both grounds, but behind the rest

std::string Number(double value) {
    return NumberText(Round(value));
}

// A share as a number of percent.
std::string PercentText(double share) {
    return Number(share * 100);
}

std::string Between(double low, double high) {
    return Number(low) + "～" + Number(high);
}

// Shares lie in 0 to 100 percent whatever a band would reach.
std::string PercentBetween(const Interval& interval) {
    return Between(std::clamp(interval.low, 0.0, 1.0) * 100,
                   std::clamp(interval.high, 0.0, 1.0) * 100);
}

template <typename Kind>
bool Tests(const TrialResult& result) {
    return std::holds_alternative<Kind>(result.settings.method);
}

// ---- lines

// What as many of are picked at random.
std::string Picked(const TrialResult& result) {
    if (Tests<PlanTrial>(result)) return "注";
    if (Tests<BlueWrapTrial>(result)) return "蓝球";
    const auto* own = std::get_if<OwnFormulasTrial>(&result.settings.method);
    if (own == nullptr || own->target == FormulaTarget::kRed) return "号码";
    return own->target == FormulaTarget::kBlue ? "蓝球" : "尾数";
}

std::string TrackLine(const TrialResult& result, std::size_t index) {
    const TrialTrack& track = result.tracks[index];
    const Tally& tally = result.sums[index].tally;
    const std::string random = "随便选同样多的" + Picked(result) + "平均 ";
    const std::string verdict = "，" + VerdictText(VerdictOf(tally)) + "。";
    if (!track.counts) {
        const Interval luck = LuckRange(tally);
        return track.name + "：中 " + Number(tally.score) + " 期，" + PercentText(tally.Rate()) +
               "%。" + random + PercentText(tally.Chance()) + "%，光靠运气也常在 " +
               PercentText(std::max(luck.low, 0.0)) + "%～" +
               PercentText(std::min(luck.high, 1.0)) + "% 之间" + verdict;
    }
    const Interval luck = LuckBand(tally);
    const double most = tally.trials / tally.draws;
    return track.name + "：平均每期 " + Number(tally.score / tally.draws) + " 个，" + random +
           Number(tally.mean / tally.draws) + " 个，光靠运气也常在 " +
           Between(std::max(luck.low / tally.draws, 0.0), std::min(luck.high / tally.draws, most)) +
           " 个之间" + verdict;
}

std::string LuckLine(const TrialResult& result) {
    const Luck& luck = *result.luck;
    const bool isSet = Tests<KillSettings>(result);
    const char* chosen = Tests<BankerSettings>(result) ? "第一组"
                         : isSet                       ? "杀码公式"
                                                       : "选中的公式";
    std::string line = std::string(chosen) + "学习时平均显示 " +
                       Number(*result.sums.front().stated) +
                       "%；同样的学习放在随机号码上，最好的一" + (isSet ? "组" : "条") +
                       "平均也能显示 " + Number(luck.best) + "%";
    // What was stated is of draws on which the learner found something, so it compares with the
    // same of the random histories.
    constexpr double kNearlyAlways = 0.95;
    if (luck.found <= 0) {
        line += "，只是随机号码上一次也没有学得出";
    } else if (luck.found < kNearlyAlways) {
        line += "，只算学得出达标公式的那 " + PercentText(luck.found) + "% 则是 " +
                Number(luck.shown) + "%";
    }
    return line + "。所以学习时的高命中率主要靠“挑”，下一期请看上面的数。";
}

std::string NothingJudgedLine(const TrialResult& result, NotJudged reason) {
    const std::string newest = "最近 " + std::to_string(result.rows.size()) + " 期";
    switch (reason) {
        case NotJudged::kTooFewDraws:
            return newest + "前面的期数都不够，没有一期可以盲测。";
        case NotJudged::kNoNumbers:
            return newest + "都没有号码可以盲测。";
        case NotJudged::kBadFormula:
            return newest + "公式都出错，请先在自助胆码里检查公式。";
        default:
            break;
    }
    if (Tests<KillSettings>(result)) {
        return newest + "都学不出达标的公式，换个学习期数、杀码个数或杀对概率试试。";
    }
    if (Tests<SingleFormulaTrial>(result)) {
        return newest + "都没有公式满足过这个条件，换个条件或期数试试。";
    }
    return newest + "都学不出达标的公式，换个学习期数或胆码个数试试。";
}

using ReasonCounts = std::map<NotJudged, int>;

std::string ReasonsText(const ReasonCounts& counts) {
    std::vector<std::string> reasons;
    for (const auto& [reason, count] : counts) {
        reasons.push_back(NotJudgedText(reason) + " " + std::to_string(count) + " 期");
    }
    return Join(reasons, "，") + "。";
}

std::vector<std::string> Lines(const TrialResult& result) {
    ReasonCounts counts;
    for (const TrialRow& row : result.rows) {
        if (row.reason != NotJudged::kJudged) ++counts[row.reason];
    }
    const int judged = result.sums.front().tally.draws;
    if (judged == 0 && counts.size() == 1) {
        return {NothingJudgedLine(result, counts.begin()->first)};
    }
    const std::string all = std::to_string(result.rows.size());
    if (judged == 0) return {"最近 " + all + " 期没有一期能计入：" + ReasonsText(counts)};
    std::vector<std::string> lines;
    for (std::size_t track = 0; track < result.tracks.size(); ++track) {
        lines.push_back(TrackLine(result, track));
    }
    if (result.luck) lines.push_back(LuckLine(result));
    if (Tests<OwnFormulasTrial>(result)) {
        lines.emplace_back("公式是您自己写的；写公式时看过的那些期，不能算没见过。");
    }
    if (!counts.empty()) {
        const auto left = static_cast<int>(result.rows.size()) - judged;
        lines.push_back("另有 " + std::to_string(left) + " 期没有计入：" + ReasonsText(counts));
    }
    return lines;
}

// ---- grid

// Where the columns of a track stand: those of its picks, its score and its chance.
struct TrackColumns {
    int firstPick;
    int score;
    int chance;
};

class TrialGrid {
  public:
    explicit TrialGrid(const TrialResult& result) : result_(result) {
        ColumnTable columns{{"期号"}, {"开奖号码"}};
        for (const TrialTrack& track : result.tracks) {
            const int first = static_cast<int>(columns.size());
            for (const std::string& pick : track.picks) columns.push_back({pick});
            const int score = static_cast<int>(columns.size());
            places_.push_back({first, score, score + 1});
            columns.push_back({"命中"});
            columns.push_back({"机会%"});
        }
        constexpr int kRowHeight = 300;
        grid_ = MakeGrid(columns, kHeadingRows + static_cast<int>(result.rows.size()) + 1,
                         kHeadingRows, kFixedCols, kRowHeight);
        WriteHeadings();
    }

    ResultGrid Take() {
        int row = kHeadingRows;
        for (const TrialRow& each : result_.rows) WriteDraw(row++, each);
        grid_.footRow = row;
        const std::string& next = result_.next.issue;
        grid_.SetCell(row, 1, next.empty() ? "下一期" : next + "期");
        WritePicks(row, result_.next);
        if (!result_.sums.empty() && result_.sums.front().tally.draws > 0) WriteSums();
        return std::move(grid_);
    }

  private:
    // Several tracks over one prediction stand beside it, each other one holds its own.
    bool IsShared() const { return result_.tracks.size() > 1 && result_.tracks[1].picks.empty(); }

    int FirstOwn(std::size_t track) const {
        const TrackColumns& place = places_[track];
        return IsShared() ? place.score : place.firstPick;
    }

    // What is marked as hit and summed up: the numbers, which stand last of the picks.
    int MainColumn(std::size_t track) const {
        const TrackColumns& place = places_[track];
        return IsShared() ? place.score : place.score - 1;
    }

    void WriteHeadings() {
        grid_.SetMergeRow(0);
        grid_.SetMergeAllCols();
        for (int col = 0; col < kFixedCols; ++col) grid_.SetCell(0, col, grid_.cell(1, col));
        for (std::size_t track = 0; track < places_.size(); ++track) {
            const TrackColumns& place = places_[track];
            if (place.firstPick < place.score) grid_.SetNames(place.firstPick, place.score - 1);
            for (int col = place.firstPick; col <= place.chance; ++col) {
                grid_.SetCell(
                    0, col,
                    col < FirstOwn(track) ? grid_.cell(1, col) : result_.tracks[track].name);
            }
        }
    }

    // The texts of what was predicted, or why nothing was.
    void WritePicks(int row, const TrialRow& draw) {
        std::size_t pick = 0;
        for (const TrackColumns& place : places_) {
            for (int col = place.firstPick; col < place.score; ++col) {
                if (draw.reason == NotJudged::kJudged) {
                    grid_.SetCell(row, col, draw.picks[pick++]);
                } else if (col == place.firstPick) {
                    grid_.SetCell(row, col, NotJudgedText(draw.reason));
                    grid_.SetFore(row, col, kPaleInk);
                }
            }
        }
        for (std::size_t track = 0; track < draw.marks.size(); ++track) {
            const Odds& odds = draw.marks[track].odds;
            grid_.SetCell(row, places_[track].chance, PercentText(odds.mean / odds.trials));
        }
    }

    void WriteDraw(int row, const TrialRow& draw) {
        grid_.SetCell(row, 0, ShortIssue(draw.issue));
        grid_.SetCell(row, 1, draw.draw);
        if (draw.reason != NotJudged::kJudged) {
            for (int col = 0; col < kFixedCols; ++col) grid_.SetFore(row, col, kPaleInk);
        }
        WritePicks(row, draw);
        for (std::size_t track = 0; track < draw.marks.size(); ++track) {
            const double score = draw.marks[track].score;
            const int col = places_[track].score;
            if (result_.tracks[track].counts) {
                grid_.SetCell(row, col, Number(score));
                continue;
            }
            grid_.SetCell(row, col, score > 0 ? "√" : "×");
            if (score > 0) grid_.SetBack(row, MainColumn(track), kDrawnMark);
        }
    }

    // A row of one text for each track.
    template <typename Text>
    void AddSumRow(const char* heading, Text text) {
        const int row = grid_.AddRow();
        grid_.SetRowHeight(row, *grid_.rowHeight(row - 1));
        grid_.SetCell(row, 1, heading);
        for (std::size_t track = 0; track < places_.size(); ++track) {
            grid_.SetCell(row, MainColumn(track), text(result_.sums[track]));
        }
    }

    void WriteSums() {
        AddSumRow("盲测命中率", [](const TrialSum& sum) { return PercentText(sum.tally.Rate()); });
        AddSumRow("机会", [](const TrialSum& sum) { return PercentText(sum.tally.Chance()); });
        AddSumRow("真实水平(95%)",
                  [](const TrialSum& sum) { return PercentBetween(OwnRange(sum.tally)); });
        if (!result_.luck) return;
        AddSumRow("学习时显示", [](const TrialSum& sum) {
            return sum.stated ? Number(*sum.stated) : std::string();
        });
    }

    const TrialResult& result_;
    ResultGrid grid_;
    std::vector<TrackColumns> places_;
};

}  // namespace

void WriteReport(TrialResult& result) {
    result.lines = Lines(result);
    result.grid = TrialGrid(result).Take();
    result.caption =
        "盲测结果  最近" + std::to_string(result.rows.size()) + "期，每期只用它之前的开奖来学习";
}

std::string NotJudgedText(NotJudged reason) {
    switch (reason) {
        case NotJudged::kTooFewDraws:
            return "期数不够";
        case NotJudged::kNothingLearned:
            return "学不出来";
        case NotJudged::kNoNumbers:
            return "没有号码";
        case NotJudged::kBadFormula:
            return "公式出错";
        case NotJudged::kJudged:
            break;
    }
    return {};
}

std::string ManyTestsLine(int tested) {
    constexpr int kFirstTold = 5;
    if (tested < kFirstTold) return {};
    return "已经测了 " + std::to_string(tested) +
           " 种设置。测得多了，总会碰上一两种看着特别好的，20 种里大约有 1 种。";
}

}  // namespace ssq
