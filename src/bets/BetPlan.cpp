#include "bets/BetPlan.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <span>

#include "base/text.h"
#include "bets/BetAttributes.h"
#include "bets/PlainLine.h"
#include "draws/Draw.h"

namespace ssq {

namespace {

constexpr int kMostBankers = 5;
constexpr int kLargestValue = 999;
constexpr int kYuanPerBet = 2;

// Both ends included.
struct Interval {
    int low = 0;
    int high = 0;
};

// What the numbers of a set may be, and what is told when one is not.
struct Limits {
    Interval range;
    BetFault fault;
    std::string_view text;
};
constexpr Limits kRedLimits{{1, kReds}, BetFault::kNumber, "号码不能大于33或者小于1！"};
constexpr Limits kBlueLimits{{1, kBlues}, BetFault::kNumber, "号码不能大于16或者小于1！"};
constexpr Limits kValueLimits{{0, kLargestValue}, BetFault::kValue, "数值不能大于999！"};

struct StatementName {
    std::string_view name;
    BetStatement statement;
};
// The first name of a statement is the one it is told by.
constexpr StatementName kStatementNames[] = {
    {"红球", BetStatement::kPool},   {"复式", BetStatement::kPool},
    {"拖码", BetStatement::kPool},   {"胆码", BetStatement::kBankers},
    {"杀码", BetStatement::kKilled}, {"杀号", BetStatement::kKilled},
    {"蓝球", BetStatement::kBlues},  {"容错", BetStatement::kTolerance},
};

std::size_t Index(BetStatement statement) {
    return static_cast<std::size_t>(statement);
}

std::vector<std::string_view> Items(std::string_view text) {
    std::vector<std::string_view> items;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(", "), text.size());
        if (end > 0) items.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return items;
}

bool OnlyDigits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Of digits; what is larger than any limit stays so.
int Number(std::string_view digits) {
    constexpr int kTooLarge = 1'000'000;
    int number = 0;
    for (const char digit : digits) number = std::min(number * 10 + (digit - '0'), kTooLarge);
    return number;
}

bool TakeStart(std::string_view& text, std::string_view start) {
    if (!text.starts_with(start)) return false;
    text.remove_prefix(start.size());
    return true;
}

void TakeOneOf(std::string_view& text, std::string_view signs) {
    if (!text.empty() && signs.find(text.front()) != std::string_view::npos) text.remove_prefix(1);
}

BetValues ToValues(std::span<const Interval> intervals) {
    BetValues values;
    for (const Interval& interval : intervals) {
        const int high = std::min(interval.high, static_cast<int>(values.size()) - 1);
        for (int value = interval.low; value <= high; ++value) {
            values.set(static_cast<std::size_t>(value));
        }
    }
    return values;
}

// In the order in which they are written.
std::vector<int> ToNumbers(std::span<const Interval> intervals) {
    std::vector<int> numbers;
    for (const Interval& interval : intervals) {
        for (int number = interval.low; number <= interval.high; ++number) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

RedSet ToSet(std::span<const int> numbers) {
    RedSet set;
    for (const int number : numbers) set.Add(number);
    return set;
}

class Reader {
  public:
    BetPlanReading Read(std::string_view text);

  private:
    // One line; each of these returns false after noting the line's error.
    bool ReadLine();
    bool ReadStatement(const StatementName& name, std::string_view values);
    bool ReadTolerance(std::string_view values);
    bool ReadAttribute(int attribute, std::string_view values);
    bool ReadList(std::string_view line);
    bool ReadCounts(std::string_view text, BetValues& values);
    bool ReadRatios(std::string_view text, std::size_t parts, BetValues& values);
    // `intervals` stays empty when there are only separators.
    bool ReadSet(std::string_view text, const Limits& limits, std::vector<Interval>& intervals);
    bool ReadItem(std::string_view item, const Limits& limits, Interval& interval);
    bool ReadComparison(std::string_view item, Interval& interval);

    void AddCondition(int attribute, RedSet numbers, const BetValues& values);
    // What only the plan as a whole can show.
    void FindConflict();
    void FindSmallPool();

    bool Fail(BetFault fault, std::string_view text);
    bool FailUnknown(std::string_view part);

    BetPlanReading result_;
    std::vector<int> bankers_;  // as written; empty while there are none or the line is wrong
    std::vector<int> killed_;
    const PlainLine* line_ = nullptr;
    int number_ = 0;
    bool must_ = false;
};

bool Reader::Fail(BetFault fault, std::string_view text) {
    result_.errors.push_back({number_, fault, std::string(text)});
    return false;
}

bool Reader::FailUnknown(std::string_view part) {
    constexpr std::size_t kTold = 20;  // characters
    const std::string typed = line_->Typed(part);
    const std::string told =
        CharacterCount(typed) > kTold ? Characters(typed, 1, kTold) + "…" : typed;
    return Fail(BetFault::kUnknown, "看不懂“" + told + "”");
}

BetPlanReading Reader::Read(std::string_view text) {
    result_.plan.pool = ToSet(ToNumbers(std::span(&kRedLimits.range, 1)));
    for (const std::string_view source : SplitLines(text)) {
        ++number_;
        const PlainLine line(source);
        line_ = &line;
        if (!line.text().empty()) ReadLine();
    }
    FindConflict();
    FindSmallPool();
    return std::move(result_);
}

bool Reader::ReadLine() {
    std::string_view rest = line_->text();
    must_ = TakeStart(rest, "!") || TakeStart(rest, "必须");
    if (must_) {
        TakeOneOf(rest, ": ");
        if (rest.empty()) return FailUnknown(line_->text());
    }
    // The longest name counts: 三区比 is not 三区.
    std::string_view name;
    const StatementName* statement = nullptr;
    int attribute = -1;
    for (const StatementName& each : kStatementNames) {
        if (rest.starts_with(each.name)) {
            name = each.name;
            statement = &each;
        }
    }
    for (std::size_t i = 0; i < BetAttributes().size(); ++i) {
        const auto take = [&](std::string_view each) {
            if (each.size() <= name.size() || !rest.starts_with(each)) return;
            name = each;
            attribute = static_cast<int>(i);
        };
        take(BetAttributes()[i].name);
        for (const std::string_view synonym : BetAttributes()[i].synonyms) take(synonym);
    }
    if (name.empty()) return ReadList(rest);
    if (statement != nullptr && must_) return FailUnknown(line_->text());
    rest.remove_prefix(name.size());
    TakeOneOf(rest, "/:= ");
    return statement != nullptr ? ReadStatement(*statement, rest) : ReadAttribute(attribute, rest);
}

bool Reader::ReadStatement(const StatementName& name, std::string_view values) {
    if (Items(values).empty()) return true;
    int& line = result_.plan.lines[Index(name.statement)];
    if (line != 0) {
        const auto* const told =
            std::find_if(std::begin(kStatementNames), std::end(kStatementNames),
                         [&](const auto& each) { return each.statement == name.statement; });
        return Fail(BetFault::kTwice, "“" + std::string(told->name) + "”只能写一行");
    }
    line = number_;
    if (name.statement == BetStatement::kTolerance) return ReadTolerance(values);

    std::vector<Interval> intervals;
    const bool blue = name.statement == BetStatement::kBlues;
    if (!ReadSet(values, blue ? kBlueLimits : kRedLimits, intervals)) return false;
    std::vector<int> numbers = ToNumbers(intervals);
    switch (name.statement) {
        case BetStatement::kPool:
            result_.plan.pool = ToSet(numbers);
            break;
        case BetStatement::kBankers:
            if (ToSet(numbers).Count() > kMostBankers) {
                return Fail(BetFault::kBankers, "胆码最多5个");
            }
            result_.plan.bankers = ToSet(numbers);
            bankers_ = std::move(numbers);
            break;
        case BetStatement::kKilled:
            result_.plan.killed = ToSet(numbers);
            killed_ = std::move(numbers);
            break;
        default:
            std::sort(numbers.begin(), numbers.end());
            numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
            result_.plan.blues = std::move(numbers);
    }
    return true;
}

// Only k, 0~k and <=k, though other sets could mean the same.
bool Reader::ReadTolerance(std::string_view values) {
    const std::vector<std::string_view> items = Items(values);
    std::vector<Interval> intervals;
    if (!ReadSet(values, kValueLimits, intervals)) return false;
    const std::string_view item = items.front();
    const bool range = !OnlyDigits(item);
    const bool open = item.front() == '~' || item.back() == '~' || item.front() == '>';
    if (items.size() != 1 || open || (range && intervals.front().low != 0)) {
        return Fail(BetFault::kTolerance, "容错应为一个数，例如 容错 2");
    }
    result_.plan.tolerance = intervals.front().high;
    return true;
}

bool Reader::ReadAttribute(int attribute, std::string_view values) {
    const int parts = BetAttributes()[static_cast<std::size_t>(attribute)].parts;
    BetValues allowed;
    if (!(parts == 1 ? ReadCounts(values, allowed)
                     : ReadRatios(values, static_cast<std::size_t>(parts), allowed))) {
        return false;
    }
    AddCondition(attribute, {}, allowed);
    return true;
}

bool Reader::ReadList(std::string_view line) {
    const std::size_t end = std::min(line.find_first_of("/:="), line.size());
    std::vector<Interval> intervals;
    if (!ReadSet(line.substr(0, end), kRedLimits, intervals)) return false;
    if (end == line.size()) return Fail(BetFault::kNoCount, "号码后面缺少“/个数”，例如 /0~1");
    BetValues counts;
    if (!ReadCounts(line.substr(end + 1), counts)) return false;
    // A copied row without numbers asks for nothing.
    if (!intervals.empty()) AddCondition(-1, ToSet(ToNumbers(intervals)), counts);
    return true;
}

bool Reader::ReadCounts(std::string_view text, BetValues& values) {
    std::vector<Interval> intervals;
    if (!ReadSet(text, kValueLimits, intervals)) return false;
    if (intervals.empty()) return Fail(BetFault::kNoValue, "缺少范围，例如 2~4");
    values = ToValues(intervals);
    return true;
}

bool Reader::ReadRatios(std::string_view text, std::size_t parts, BetValues& values) {
    const std::vector<std::string_view> items = Items(text);
    if (items.empty()) return Fail(BetFault::kNoValue, "缺少范围，例如 2~4");
    for (const std::string_view item : items) {
        std::vector<int> ratio;
        for (const std::string& part : Split(item, ":")) {
            if (part.empty() || !OnlyDigits(part)) return FailUnknown(item);
            ratio.push_back(Number(part));
        }
        if (ratio.size() != parts) return FailUnknown(item);
        if (std::accumulate(ratio.begin(), ratio.end(), 0) != kRedsInDraw) {
            return Fail(BetFault::kRatio, "比例的各项相加应为6");
        }
        values.set(static_cast<std::size_t>(RatioValue(ratio)));
    }
    return true;
}

bool Reader::ReadSet(std::string_view text, const Limits& limits,
                     std::vector<Interval>& intervals) {
    const std::vector<std::string_view> items = Items(text);
    const bool comparison = items.size() == 1 && limits.fault == BetFault::kValue &&
                            (items[0].starts_with(">=") || items[0].starts_with("<="));
    for (const std::string_view item : items) {
        Interval interval = limits.range;
        if (!(comparison ? ReadComparison(item, interval) : ReadItem(item, limits, interval))) {
            return false;
        }
        intervals.push_back(interval);
    }
    return true;
}

bool Reader::ReadItem(std::string_view item, const Limits& limits, Interval& interval) {
    const std::size_t dash = std::min(item.find('~'), item.size());
    const std::string_view first = item.substr(0, dash);
    const std::string_view second = item.substr(std::min(dash + 1, item.size()));
    if (!OnlyDigits(first) || !OnlyDigits(second) || (first.empty() && second.empty())) {
        return FailUnknown(item);
    }
    if (!first.empty()) interval.low = Number(first);
    if (!second.empty()) interval.high = Number(second);
    if (dash == item.size()) interval.high = interval.low;
    for (const int end : {interval.low, interval.high}) {
        if (end < limits.range.low || end > limits.range.high) {
            return Fail(limits.fault, limits.text);
        }
    }
    if (interval.low > interval.high) return Fail(BetFault::kOrder, "起始值不能大于结束值！");
    return true;
}

bool Reader::ReadComparison(std::string_view item, Interval& interval) {
    const std::string_view digits = item.substr(2);
    if (digits.empty() || !OnlyDigits(digits)) return FailUnknown(item);
    const int end = Number(digits);
    if (end > kLargestValue) return Fail(kValueLimits.fault, kValueLimits.text);
    (item.front() == '>' ? interval.low : interval.high) = end;
    return true;
}

void Reader::AddCondition(int attribute, RedSet numbers, const BetValues& values) {
    result_.plan.conditions.push_back(
        {number_, line_->Typed(line_->text()), must_, attribute, numbers, values});
}

void Reader::FindConflict() {
    const auto& lines = result_.plan.lines;
    const bool killedLater =
        lines[Index(BetStatement::kKilled)] > lines[Index(BetStatement::kBankers)];
    const RedSet earlier = ToSet(killedLater ? bankers_ : killed_);
    for (const int number : killedLater ? killed_ : bankers_) {
        if (!earlier.Has(number)) continue;
        number_ = lines[Index(killedLater ? BetStatement::kKilled : BetStatement::kBankers)];
        Fail(BetFault::kConflict, TwoDigits(number) + "既是胆码又是杀码");
        std::stable_sort(result_.errors.begin(), result_.errors.end(),
                         [](const auto& a, const auto& b) { return a.line < b.line; });
        return;
    }
}

void Reader::FindSmallPool() {
    const BetPlan& plan = result_.plan;
    if (!result_.errors.empty() || plan.Usable().Count() >= kRedsInDraw) return;
    number_ =
        std::max({plan.lines[Index(BetStatement::kPool)], plan.lines[Index(BetStatement::kBankers)],
                  plan.lines[Index(BetStatement::kKilled)]});
    Fail(BetFault::kPool, plan.bankers.empty() ? "红球不能小于6个" : "胆码和拖码总数不能小于6个");
}

}  // namespace

std::int64_t BetPlan::Cost(std::int64_t combinations) const {
    const auto blueCount = static_cast<std::int64_t>(std::max<std::size_t>(blues.size(), 1));
    return combinations * blueCount * kYuanPerBet;
}

std::string BetPlanError::Told() const {
    return "第" + std::to_string(line) + "行：" + text;
}

BetPlanReading ReadBetPlan(std::string_view text) {
    return Reader().Read(text);
}

}  // namespace ssq
