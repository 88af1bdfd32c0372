#include "tools/NumberComparator.h"

#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "ui/Host.h"

namespace ssq {

namespace {

// Each run of blanks is one comma.
std::string WithCommas(std::string_view text) {
    std::string items;
    for (const char c : text) {
        const bool inRun = c == ' ' && !items.empty() && items.back() == ' ';
        if (!inRun) items += c;
    }
    return Replace(items, " ", ",");
}

}  // namespace

std::optional<RedSet> ReadNumbers(std::string_view text) {
    RedSet numbers;
    for (const std::string& item : Split(WithCommas(Trim(text)), ",")) {
        const double value = Val(item);
        if (!(value >= 1 && value <= kReds)) return std::nullopt;
        numbers.Add(static_cast<int>(std::round(value)));
    }
    return numbers;
}

CaughtDraws CompareNumbers(RedSet numbers, const std::vector<Draw>& draws) {
    CaughtDraws caught;
    for (const Draw& draw : draws) {
        const int count = draw.set.CountIn(numbers);
        if (count < 4) continue;
        auto& list = count == 4 ? caught.four : count == 5 ? caught.five : caught.six;
        list.push_back(draw.issue + "  " + draw.reds);
    }
    return caught;
}

std::optional<CaughtDraws> CompareWithHistory(Session& session, std::string_view text) {
    const auto numbers = ReadNumbers(text);
    if (!numbers) {
        session.host.ShowMessage("输入的号码不能大于33或者小于1！");
        return std::nullopt;
    }
    const auto draws = ReadAllDraws(session);
    if (!draws) return std::nullopt;
    return CompareNumbers(*numbers, *draws);
}

}  // namespace ssq
