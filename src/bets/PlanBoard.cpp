#include "bets/PlanBoard.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "bets/PlainLine.h"
#include "draws/Draw.h"

namespace ssq {

namespace {

constexpr int kShortestRange = 3;  // 01,02 but 01-03

const char* NameOf(BetStatement statement) {
    switch (statement) {
        case BetStatement::kPool:
            return "红球";
        case BetStatement::kBankers:
            return "胆码";
        case BetStatement::kKilled:
            return "杀码";
        default:
            return "蓝球";
    }
}

int LineOf(const BetPlan& plan, BetStatement statement) {
    return plan.lines[static_cast<std::size_t>(statement)];
}

RedSet WrittenPool(const BetPlan& plan) {
    return LineOf(plan, BetStatement::kPool) > 0 ? plan.pool : RedSet();
}

// Ascending numbers, those in a row as a range.
std::string NumberList(const std::vector<int>& numbers) {
    std::string list;
    for (std::size_t begin = 0, end = 0; begin < numbers.size(); begin = end) {
        end = begin + 1;
        while (end < numbers.size() && numbers[end] == numbers[end - 1] + 1) ++end;
        if (end - begin < kShortestRange) end = begin + 1;
        if (!list.empty()) list += ',';
        list += TwoDigits(numbers[begin]);
        if (end - begin > 1) list += "-" + TwoDigits(numbers[end - 1]);
    }
    return list;
}

std::vector<int> NumbersOf(RedSet set) {
    std::vector<int> numbers;
    for (int red = 1; red <= kReds; ++red) {
        if (set.Has(red)) numbers.push_back(red);
    }
    return numbers;
}

// The remark of a line with its sign, full-width or not.
std::string_view RemarkOf(std::string_view line) {
    const std::size_t begin = std::min(line.find('#'), line.find("＃"));
    return begin == std::string_view::npos ? std::string_view() : line.substr(begin);
}

class PlanText {
  public:
    explicit PlanText(const std::string& text) : reading_(ReadBetPlan(text)) {
        if (text.empty()) return;
        for (const std::string_view line : SplitLines(text)) lines_.emplace_back(line);
    }

    const BetPlan& plan() const { return reading_.plan; }

    // Whether what the line says is known. Lines that contradict each other are.
    bool CanWrite(BetStatement statement) const {
        const int line = LineOf(plan(), statement);
        return std::ranges::none_of(reading_.errors, [line](const BetPlanError& error) {
            return error.line == line && error.fault != BetFault::kConflict &&
                   error.fault != BetFault::kPool;
        });
    }

    void Write(BetStatement statement, const std::vector<int>& numbers) {
        const int line = LineOf(plan(), statement);
        std::string words =
            numbers.empty() ? std::string() : NameOf(statement) + (" " + NumberList(numbers));
        if (line == 0) {
            if (!words.empty()) added_.push_back(std::move(words));
            return;
        }
        std::string& written = lines_[static_cast<std::size_t>(line - 1)];
        const std::string remark(RemarkOf(written));
        if (!words.empty() && !remark.empty()) words += "  ";
        words += remark;
        if (words.empty()) gone_.push_back(line);
        written = std::move(words);
    }

    std::string Text() const {
        std::vector<std::string> lines;
        const int last = std::ranges::max(plan().lines);
        const auto add = [&] { lines.insert(lines.end(), added_.begin(), added_.end()); };
        if (last == 0) add();
        for (int line = 1; line <= static_cast<int>(lines_.size()); ++line) {
            if (std::ranges::find(gone_, line) == gone_.end()) {
                lines.push_back(lines_[static_cast<std::size_t>(line - 1)]);
            }
            if (line == last) add();
        }
        return Join(lines, "\n");
    }

  private:
    BetPlanReading reading_;
    std::vector<std::string> lines_;
    std::vector<std::string> added_;
    std::vector<int> gone_;
};

BallState Next(BallState state, int bankers) {
    switch (state) {
        case BallState::kNothing:
            return bankers < kMostBankers ? BallState::kBanker : BallState::kPool;
        case BallState::kBanker:
            return BallState::kPool;
        case BallState::kPool:
            return BallState::kKilled;
        default:
            return BallState::kNothing;
    }
}

}  // namespace

BallState RedState(const BetPlan& plan, int red) {
    if (plan.bankers.Has(red)) return BallState::kBanker;
    if (plan.killed.Has(red)) return BallState::kKilled;
    return WrittenPool(plan).Has(red) ? BallState::kPool : BallState::kNothing;
}

std::string PressRed(const std::string& text, int red) {
    PlanText edit(text);
    const BetPlan& plan = edit.plan();
    const BallState next = Next(RedState(plan, red), plan.bankers.Count());
    struct Line {
        BetStatement statement;
        BallState state;
        RedSet before;
    };
    const Line lines[] = {{BetStatement::kPool, BallState::kPool, WrittenPool(plan)},
                          {BetStatement::kBankers, BallState::kBanker, plan.bankers},
                          {BetStatement::kKilled, BallState::kKilled, plan.killed}};
    RedSet only;
    only.Add(red);
    for (const Line& line : lines) {
        const RedSet after = next == line.state ? line.before | only : line.before.Without(only);
        if (after == line.before) continue;
        if (!edit.CanWrite(line.statement)) return text;
        edit.Write(line.statement, NumbersOf(after));
    }
    return edit.Text();
}

std::string PressBlue(const std::string& text, int blue) {
    PlanText edit(text);
    if (!edit.CanWrite(BetStatement::kBlues)) return text;
    std::vector<int> blues = edit.plan().blues;
    const auto place = std::ranges::lower_bound(blues, blue);
    if (place != blues.end() && *place == blue) {
        blues.erase(place);
    } else {
        blues.insert(place, blue);
    }
    edit.Write(BetStatement::kBlues, blues);
    return edit.Text();
}

}  // namespace ssq
