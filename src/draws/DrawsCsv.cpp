#include "draws/DrawsCsv.h"

#include <algorithm>
#include <limits>

#include "base/RedSet.h"
#include "base/charset.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/IssueRules.h"

namespace ssq {

namespace {

using Amount = std::optional<std::int64_t>;
using Amounts = std::array<Amount, kPrizeLevels>;

constexpr const char* kSalesColumn = ",sales";
constexpr const char* kUnknownItem = "-";
constexpr std::size_t kColumns = 9;

// A whole number of up to 15 digits, which a double still holds; empty for anything else.
Amount ParseAmount(const std::string& text) {
    constexpr std::size_t kLongest = 15;
    if (text.empty() || text.size() > kLongest ||
        text.find_first_not_of("0123456789") != std::string::npos) {
        return std::nullopt;
    }
    return WholePart(text);
}

// The items of a list, which blanks separate.
std::vector<int> ParseBalls(const std::string& text) {
    std::vector<int> balls;
    for (const std::string& item : Split(text, " ")) {
        balls.push_back(item.size() > 2 ? 0 : ToInt(ParseAmount(item).value_or(0)));
    }
    return balls;
}

// Whether the balls are so many different reds.
bool AreReds(const std::vector<int>& balls, std::size_t count) {
    RedSet set;
    for (const int ball : balls) set.Add(ball);
    return balls.size() == count && static_cast<std::size_t>(set.Count()) == count;
}

// One line on its way to a draw. Each step gives an empty text or what is wrong.
class LineReader {
  public:
    LineReader(std::vector<std::string> fields, bool hasSales, const std::optional<Date>& latest)
        : fields_(std::move(fields)), hasSales_(hasSales), latest_(latest) {
        for (std::string& field : fields_) field = Trim(field);
    }

    std::string Read(PublishedDraw& draw) const {
        if (fields_.size() != kColumns + (hasSales_ ? 1 : 0)) {
            return "列数是 " + std::to_string(fields_.size()) + "，应为 " +
                   std::to_string(kColumns + (hasSales_ ? 1 : 0));
        }
        std::string fault = ReadDay(draw.draw);
        if (fault.empty()) fault = ReadNumbers(draw.draw);
        if (fault.empty()) fault = ReadMoney(draw);
        if (fault.empty()) fault = ReadSales(draw.sales);
        return fault;
    }

  private:
    static std::string Wrong(const char* what, const std::string& value) {
        return std::string(what) + "不正确：" + Excerpt(value);
    }

    std::string ReadDay(NewDraw& draw) const {
        if (!IsDrawIssue(fields_[0])) return Wrong("期号", fields_[0]);
        draw.issue = static_cast<std::int32_t>(WholePart(fields_[0]));
        const auto date = ParseDate(fields_[1]);
        if (!date || Contains(fields_[1], " ")) return Wrong("日期", fields_[1]);
        if (!FitsDate(draw.issue, *date)) return "期号与日期的年份不符：" + fields_[1];
        if (latest_ && *date > *latest_) return "日期还没有到：" + fields_[1];
        draw.date = DateText(*date);
        return {};
    }

    std::string ReadNumbers(NewDraw& draw) const {
        const std::vector<int> blue = ParseBalls(fields_[2]);
        if (blue.size() != 1 || blue[0] < 1 || blue[0] > kBlues) return Wrong("蓝球", fields_[2]);
        draw.blue = blue[0];
        const std::vector<int> reds = ParseBalls(fields_[3]);
        if (!AreReds(reds, draw.balls.size()) || !std::ranges::is_sorted(reds)) {
            return Wrong("红球（六个不同的号码，从小到大）", fields_[3]);
        }
        std::ranges::copy(reds, draw.balls.begin());
        const std::vector<int> drawn = ParseBalls(fields_[4]);
        if (drawn.empty()) return {};
        if (!std::ranges::is_permutation(drawn, reds)) return Wrong("出球顺序", fields_[4]);
        for (const int ball : drawn)
            draw.drawn += (draw.drawn.empty() ? "" : ",") + TwoDigits(ball);
        return {};
    }

    static bool ReadAmount(const std::string& text, const char* unknown, Amount& amount) {
        amount = ParseAmount(text);
        return amount || text == unknown;
    }

    static bool ReadAmounts(const std::string& text, Amounts& amounts) {
        if (text.empty()) return true;
        const std::vector<std::string> items = Split(text, " ");
        if (items.size() != amounts.size()) return false;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (!ReadAmount(items[i], kUnknownItem, amounts[i])) return false;
        }
        return true;
    }

    std::string ReadMoney(PublishedDraw& draw) const {
        if (!ReadAmount(fields_[5], "", draw.stake)) return Wrong("投注总额", fields_[5]);
        if (!ReadAmount(fields_[6], "", draw.pool)) return Wrong("奖池", fields_[6]);
        if (!ReadAmounts(fields_[7], draw.tickets)) return Wrong("中奖注数", fields_[7]);
        if (!ReadAmounts(fields_[8], draw.amounts)) return Wrong("单注奖金", fields_[8]);
        // The prizes are stored in 32 bits, their sum too.
        constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
        std::int64_t sum = 0;
        for (std::size_t level = 0; level < kPrizeLevels; ++level) {
            const std::int64_t tickets = draw.tickets[level].value_or(0);
            const std::int64_t amount = draw.amounts[level].value_or(0);
            if (tickets > kLargest || amount > kLargest || tickets * amount > kLargest - sum) {
                return "奖金超出范围：" + Excerpt(fields_[7] + " × " + fields_[8]);
            }
            sum += tickets * amount;
        }
        return {};
    }

    std::string ReadSales(std::vector<int>& sales) const {
        if (!hasSales_ || fields_.back().empty()) return {};
        sales = ParseBalls(fields_.back());
        return AreReds(sales, kReds) ? std::string() : Wrong("销售排行", fields_.back());
    }

    std::vector<std::string> fields_;
    bool hasSales_;
    const std::optional<Date>& latest_;
};

struct NumberedDraw {
    PublishedDraw draw;
    int line = 0;
};

// Keeps what is later than the draw before, by issue and by date.
void KeepInOrder(std::vector<NumberedDraw>& numbered, DrawsCsv& csv) {
    std::ranges::stable_sort(numbered, {}, [](const auto& n) { return n.draw.draw.issue; });
    int lastLine = 0;
    for (NumberedDraw& next : numbered) {
        const NewDraw& draw = next.draw.draw;
        const NewDraw* last = csv.draws.empty() ? nullptr : &csv.draws.back().draw;
        if (last && last->issue == draw.issue) {
            csv.faults.push_back({next.line, "期号与第 " + std::to_string(lastLine) + " 行重复：" +
                                                 std::to_string(draw.issue)});
        } else if (last && last->date >= draw.date) {
            csv.faults.push_back({next.line, "日期不在上一期之后：" + draw.date});
        } else {
            csv.draws.push_back(std::move(next.draw));
            lastLine = next.line;
        }
    }
    std::ranges::sort(csv.faults, {}, &DrawsCsvFault::line);
}

std::string AmountText(const Amount& amount, const char* unknown) {
    return amount ? std::to_string(*amount) : unknown;
}

std::string AmountsText(const Amounts& amounts) {
    if (std::ranges::none_of(amounts, [](const Amount& a) { return a.has_value(); })) return {};
    std::vector<std::string> items;
    for (const Amount& amount : amounts) items.push_back(AmountText(amount, kUnknownItem));
    return Join(items, " ");
}

template <typename Balls>
std::string BallsText(const Balls& balls) {
    std::vector<std::string> items;
    for (const int ball : balls) items.push_back(TwoDigits(ball));
    return Join(items, " ");
}

std::string LineOf(const PublishedDraw& published, bool withSales) {
    const NewDraw& draw = published.draw;
    std::string line = std::to_string(draw.issue) + "," + draw.date + "," +
                       std::to_string(draw.blue) + "," + BallsText(draw.balls) + "," +
                       Replace(draw.drawn, ",", " ") + "," + AmountText(published.stake, "") + "," +
                       AmountText(published.pool, "") + "," + AmountsText(published.tickets) + "," +
                       AmountsText(published.amounts);
    if (withSales) line += "," + BallsText(published.sales);
    return line + "\n";
}

}  // namespace

DrawsCsv ReadDrawsCsv(std::string_view bytes, const std::optional<Date>& latest) {
    DrawsCsv csv;
    const auto text = DecodeTextFile(bytes);
    if (!text) {
        csv.faults.push_back({1, "不是 UTF-8 编码的文本文件"});
        return csv;
    }
    const std::vector<std::string> lines = Split(*text, "\n");
    const std::string heading = lines.empty() ? std::string() : Trim(lines[0]);
    const bool hasSales = heading == std::string(kDrawsCsvHeading) + kSalesColumn;
    if (!hasSales && heading != kDrawsCsvHeading) {
        csv.faults.push_back({1, "标题行不正确，应为：" + std::string(kDrawsCsvHeading)});
        return csv;
    }
    std::vector<NumberedDraw> numbered;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (Trim(lines[i]).empty()) continue;
        NumberedDraw next;
        next.line = static_cast<int>(i) + 1;
        const std::string fault =
            LineReader(Split(lines[i], ","), hasSales, latest).Read(next.draw);
        if (fault.empty()) {
            numbered.push_back(std::move(next));
        } else {
            csv.faults.push_back({next.line, fault});
        }
    }
    KeepInOrder(numbered, csv);
    return csv;
}

std::string WriteDrawsCsv(std::span<const PublishedDraw> draws) {
    const bool withSales =
        std::ranges::any_of(draws, [](const PublishedDraw& d) { return !d.sales.empty(); });
    std::string text = std::string(kDrawsCsvHeading) + (withSales ? kSalesColumn : "") + "\n";
    for (const PublishedDraw& draw : draws) text += LineOf(draw, withSales);
    return text;
}

bool HasWholeNotice(const PublishedDraw& draw) {
    const auto known = [](const Amount& amount) { return amount.has_value(); };
    return draw.stake && draw.pool && *draw.pool > 0 && std::ranges::all_of(draw.tickets, known) &&
           std::ranges::all_of(draw.amounts, known);
}

}  // namespace ssq
