#include "gateway/merge.h"

#include <algorithm>

#include "draws/IssueRules.h"

namespace ssq {

namespace {

// What the two know together; where both know, `first` counts.
PublishedDraw Together(const PublishedDraw& first, const PublishedDraw& second) {
    PublishedDraw both = first;
    const auto fill = [](auto& known, const auto& other) {
        if (!known) known = other;
    };
    if (both.draw.drawn.empty()) both.draw.drawn = second.draw.drawn;
    if (both.sales.empty()) both.sales = second.sales;
    fill(both.stake, second.stake);
    fill(both.pool, second.pool);
    for (std::size_t level = 0; level < kPrizeLevels; ++level) {
        fill(both.tickets[level], second.tickets[level]);
        fill(both.amounts[level], second.amounts[level]);
    }
    return both;
}

bool HaveSameNumbers(const PublishedDraw& a, const PublishedDraw& b) {
    return a.draw.date == b.draw.date && a.draw.balls == b.draw.balls && a.draw.blue == b.draw.blue;
}

void MergeDraw(PublishedDraw& stored, const PublishedDraw& fresh, bool replace, MergeCount& count) {
    const bool same = HaveSameNumbers(stored, fresh);
    const PublishedDraw completed = Together(stored, fresh);
    // Of another draw's numbers the drawn order and the money would be another draw's, too.
    const PublishedDraw renewed = same ? Together(fresh, stored) : fresh;
    const bool differs = !same || renewed != completed;
    if (differs && replace) {
        stored = renewed;
        ++count.replaced;
        return;
    }
    if (differs) ++count.different;
    if (!same || completed == stored) return;
    stored = completed;
    ++count.completed;
}

}  // namespace

bool Follows(const PublishedDraw& draw, const PublishedDraw& before) {
    return IsNextDraw(draw.draw.issue, *ParseDate(draw.draw.date), before.draw.issue,
                      *ParseDate(before.draw.date));
}

MergeCount MergeDraws(std::vector<PublishedDraw>& draws, std::span<const PublishedDraw> fresh,
                      bool replace) {
    const auto issue = [](const PublishedDraw& draw) { return draw.draw.issue; };
    MergeCount count;
    for (const PublishedDraw& next : fresh) {
        const auto place = std::ranges::lower_bound(draws, next.draw.issue, {}, issue);
        if (place != draws.end() && place->draw.issue == next.draw.issue) {
            MergeDraw(*place, next, replace, count);
        } else if (place == draws.end() && !draws.empty() && !Follows(next, draws.back())) {
            if (count.behindHole == 0) count.behindHole = next.draw.issue;
        } else {
            draws.insert(place, next);
            ++count.added;
        }
    }
    return count;
}

std::string MergeText(const MergeCount& count) {
    std::string text;
    const auto add = [&](const char* what, int draws) {
        if (draws > 0) text += (text.empty() ? "" : "，") + (what + std::to_string(draws)) + " 期";
    };
    add("新增 ", count.added);
    add("补全 ", count.completed);
    add("替换 ", count.replaced);
    add("与文件不同而没有改动 ", count.different);
    return text;
}

}  // namespace ssq
