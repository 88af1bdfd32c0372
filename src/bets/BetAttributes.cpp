#include "bets/BetAttributes.h"

#include <algorithm>
#include <bit>
#include <numeric>

// The counts that the trend charts show under the same names are theirs.
#include "charts/dapan_fx.h"
#include "charts/tails.h"

namespace ssq {

namespace {

constexpr int kRedsInBet = 6;
constexpr int kRatioBase = kRedsInBet + 1;

constexpr bool Odd(int red) {
    return red % 2 == 1;
}
constexpr bool Even(int red) {
    return red % 2 == 0;
}
constexpr bool Small(int red) {
    return red <= 16;
}
constexpr bool Big(int red) {
    return red > 16;
}
// 1 counts as prime, as it does among the tails of the charts.
constexpr bool Prime(int red) {
    for (const int prime : {1, 2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31}) {
        if (red == prime) return true;
    }
    return false;
}
constexpr bool Composite(int red) {
    return !Prime(red);
}
// Three zones of eleven numbers.
template <int kZone>
constexpr bool InZone(int red) {
    return (red - 1) / 11 == kZone - 1;
}
template <int kRemainder>
constexpr bool OnRoad(int red) {
    return red % 3 == kRemainder;
}

// The reds for which the test holds, whatever was drawn before.
template <bool (*kTest)(int)>
RedSet Those(RedSet /*previous*/) {
    constexpr RedSet kThose = [] {
        RedSet set;
        for (int red = 1; red <= RedSet::kLargest; ++red) {
            if (kTest(red)) set.Add(red);
        }
        return set;
    }();
    return kThose;
}

RedSet Repeats(RedSet previous) {
    return previous;
}

RedSet Edges(RedSet previous) {
    return previous.Plus(1) | previous.Minus(1);
}

int Sum(const Bet& bet) {
    return std::accumulate(bet.reds.begin(), bet.reds.end(), 0);
}

int Span(const Bet& bet) {
    return bet.reds.back() - bet.reds.front();
}

int Consecutive(const Bet& bet) {
    return CountGap1(bet.reds);
}

int TailGroups(const Bet& bet) {
    int groups = 0;
    CountTailGroups(bet.set, groups);
    return groups;
}

int TailSum(const Bet& bet) {
    const TailDigits tails = TailsOf(bet.reds);
    return std::accumulate(tails.begin(), tails.end(), 0);
}

// Different differences less the five that six numbers have at least.
int Complexity(const Bet& bet) {
    std::uint64_t differences = 0;
    for (std::size_t i = 0; i < bet.reds.size(); ++i) differences |= bet.set.bits() >> bet.reds[i];
    return std::popcount(differences >> 1U) - (kRedsInBet - 1);
}

int LargestGap(const Bet& bet) {
    int gap = 0;
    for (std::size_t i = 1; i < bet.reds.size(); ++i) {
        gap = std::max(gap, bet.reds[i] - bet.reds[i - 1] - 1);
    }
    return gap;
}

template <std::size_t kIndex>
int RedAt(const Bet& bet) {
    return bet.reds[kIndex];
}

// First and second part of a ratio of three.
template <bool (*kFirst)(int), bool (*kSecond)(int)>
int ThreeParts(const Bet& bet) {
    return bet.set.CountIn(Those<kFirst>({})) * kRatioBase + bet.set.CountIn(Those<kSecond>({}));
}

// Writes the values of all bets that begin with the first `position` reds of `bet`, which are also
// its set, and returns where they end.
std::uint8_t* Fill(const BetAttribute& attribute, Bet& bet, std::size_t position,
                   std::uint8_t* values) {
    const RedSet chosen = bet.set;
    const int last = RedSet::kLargest - kRedsInBet + static_cast<int>(position) + 1;
    int red = position == 0 ? 1 : bet.reds[position - 1] + 1;
    for (; red <= last; ++red) {
        bet.reds[position] = red;
        bet.set = chosen;
        bet.set.Add(red);
        if (position + 1 < bet.reds.size()) {
            values = Fill(attribute, bet, position + 1, values);
        } else {
            *values++ = static_cast<std::uint8_t>(attribute.Value(bet));
        }
    }
    bet.set = chosen;
    return values;
}

BetAttribute Calculated(std::string_view name, std::vector<std::string_view> synonyms,
                        int (*calculate)(const Bet&), int parts = 1) {
    return {name, std::move(synonyms), parts, calculate, nullptr, false};
}

BetAttribute Counted(std::string_view name, std::vector<std::string_view> synonyms,
                     RedSet (*counted)(RedSet), int parts = 1) {
    return {name, std::move(synonyms), parts, nullptr, counted, false};
}

BetAttribute LookingBack(std::string_view name, std::vector<std::string_view> synonyms,
                         RedSet (*counted)(RedSet)) {
    return {name, std::move(synonyms), 1, nullptr, counted, true};
}

}  // namespace

Bet::Bet(const SixReds& ascending, RedSet before) : reds(ascending), previous(before) {
    for (const int red : reds) set.Add(red);
}

int BetAttribute::Value(const Bet& bet) const {
    return counted != nullptr ? bet.set.CountIn(counted(bet.previous)) : calculate(bet);
}

std::string BetAttribute::Text(int value) const {
    if (parts == 1) return std::to_string(value);
    if (parts == 2) return std::to_string(value) + ":" + std::to_string(kRedsInBet - value);
    const int first = value / kRatioBase;
    const int second = value % kRatioBase;
    return std::to_string(first) + ":" + std::to_string(second) + ":" +
           std::to_string(kRedsInBet - first - second);
}

const std::vector<BetAttribute>& BetAttributes() {
    static const std::vector<BetAttribute> attributes{
        Calculated("和值", {}, Sum),
        Calculated("跨度", {}, Span),
        Counted("奇数", {"奇数个数", "单数"}, Those<Odd>),
        Counted("偶数", {"偶数个数", "双数"}, Those<Even>),
        Counted("大数", {"大数个数"}, Those<Big>),
        Counted("小数", {"小数个数"}, Those<Small>),
        Counted("质数", {"质数个数"}, Those<Prime>),
        Counted("合数", {"合数个数"}, Those<Composite>),
        Counted("一区", {"一区个数", "1区", "1区个数"}, Those<InZone<1>>),
        Counted("二区", {"二区个数", "2区", "2区个数"}, Those<InZone<2>>),
        Counted("三区", {"三区个数", "3区", "3区个数"}, Those<InZone<3>>),
        Counted("0路", {"0路个数"}, Those<OnRoad<0>>),
        Counted("1路", {"1路个数"}, Those<OnRoad<1>>),
        Counted("2路", {"2路个数"}, Those<OnRoad<2>>),
        LookingBack("重号", {"重号个数"}, Repeats),
        LookingBack("边号", {"边号个数"}, Edges),
        Calculated("连号", {"连号对数"}, Consecutive),
        Calculated("尾组", {"尾数组数"}, TailGroups),
        Calculated("尾数和", {}, TailSum),
        Calculated("AC值", {"AC"}, Complexity),
        Calculated("首红", {"龙头", "第1位"}, RedAt<0>),
        Calculated("第2位", {}, RedAt<1>),
        Calculated("第3位", {}, RedAt<2>),
        Calculated("第4位", {}, RedAt<3>),
        Calculated("第5位", {}, RedAt<4>),
        Calculated("尾红", {"凤尾", "第6位"}, RedAt<5>),
        Calculated("最大间隔", {}, LargestGap),
        Counted("奇偶比", {}, Those<Odd>, 2),
        Counted("大小比", {}, Those<Big>, 2),
        Counted("质合比", {}, Those<Prime>, 2),
        Calculated("三区比", {}, ThreeParts<InZone<1>, InZone<2>>, 3),
        Calculated("012路比", {}, ThreeParts<OnRoad<0>, OnRoad<1>>, 3),
    };
    return attributes;
}

int FindBetAttribute(std::string_view name) {
    const std::vector<BetAttribute>& all = BetAttributes();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto& synonyms = all[i].synonyms;
        if (all[i].name == name ||
            std::find(synonyms.begin(), synonyms.end(), name) != synonyms.end()) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

int RatioValue(std::span<const int> parts) {
    return parts.size() == 2 ? parts[0] : parts[0] * kRatioBase + parts[1];
}

std::span<const std::uint8_t> BetColumns::Of(int attribute, RedSet previous) {
    columns_.resize(BetAttributes().size());
    const auto index = static_cast<std::size_t>(attribute);
    const BetAttribute& wanted = BetAttributes()[index];
    Column& column = columns_[index];
    if (column.bytes.empty() || (wanted.looksBack && column.previous != previous)) {
        column.previous = previous;
        column.bytes.resize(kFrontRoom + kCombinationCount);
        Bet bet({}, {}, previous);
        Fill(wanted, bet, 0, column.bytes.data() + kFrontRoom);
    }
    return std::span<const std::uint8_t>(column.bytes).subspan(kFrontRoom);
}

}  // namespace ssq
