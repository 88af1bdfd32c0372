#include "charts/CounterTips.h"

#include <algorithm>

#include "base/text.h"
#include "charts/TrendCounters.h"

namespace ssq {

constexpr std::array<CounterMeaning, 32> kCounterMeanings{{
    {"隔1期又开出的号码有几个", {". 07 .", ". . .", ". 07* ."}},
    {"隔2期又开出的号码有几个", {". 07 .", ". . .", ". . .", ". 07* ."}},
    {"隔3期又开出的号码有几个", {". 07 .", ". . .", ". . .", ". . .", ". 07* ."}},
    {"和上期某个号码相差1的号码有几个", {". 07 . .", ". . 08* ."}},
    {"和上期某个号码相差2的号码有几个", {"07 . . .", ". . 09* ."}},
    {"和上期某个号码相差3的号码有几个", {"07 . . .", ". . . 10*"}},
    {"本期相差2、中间那个没开的号码有几对", {"07* . 09* ."}},
    {"上期也开出的号码有几个", {". 07 .", ". 07* ."}},
    {"本期相邻的号码有几对", {". 07* 08* ."}},
    {"本期个位十位互换的号码有几对", {"12* . . 21*"}},
    {"和上期、上上期的号码连成斜线的号码有几个", {". . 09", ". 08 .", "07* . ."}},
    {"本期有几个不同的尾数", {"01* 05* 12* 15 23* 30*"}},
    {"本期有几个尾数上期也开过", {"03 08 . 17 .", ". . 13* . 28*"}},
    {"本期蓝球的号码也在本期红球里，是为1，不是为0", {". 07* . +07"}},
    {"上上期开过它、上期开过它旁边的号码有几个", {". 07 .", ". . 08", ". 07* ."}},
    {"上期开了它的左右两边、没开它的号码有几个", {"06 . 08", ". 07* ."}},
    {"本期开了它和比它大2的、中间那个没开而上期开了的号码有几个", {". 07 .", "06* . 08"}},
    {"上期它和右边一个都开了、本期只重复它的号码有几个", {". 07 08", ". 07* ."}},
    {"上期它和左边一个都开了、本期只重复它的号码有几个", {"06 07 .", ". 07* ."}},
    {"上上期开了它的左右两边、上期没开它的号码有几个", {"06 . 08", ". . .", ". 07* ."}},
    {"再往上一期开了它的左右两边、此后两期没开它的号码有几个",
     {"06 . 08", ". . .", ". . .", ". 07* ."}},
    {"上上期开了它、上期没开它而开了左右两边的号码有几个", {". 07 .", "06 . 08", ". 07* ."}},
    {"上期和上上期都开了它同一边相邻号码的号码有几个", {". 08", ". 08", "07* ."}},
    {"上期开了它同一边紧挨着的两个号码的号码有几个", {". 08 09", "07* . ."}},
    {"上期开了它同一边第1个和第3个、没开第2个的号码有几个", {". 08 . 10", "07* . . ."}},
    {"它同一边相邻的号码上期开了、上上期没开、再往上一期开了的号码有几个",
     {". 08", ". .", ". 08", "07* ."}},
    {"上上期开了它某一边相邻的号码、上期它和那个都没开的号码有几个", {". 08", ". .", "07* ."}},
    {"上期在它左右各隔2格的号码都开了的号码有几个", {"05 . . . 09", ". . 07* . ."}},
    {"本期和后面某个号码正好隔3个数的号码有几个", {"05* . . . 09"}},
    {"上期在它左右各隔3格的号码都开了的号码有几个", {"04 . . . . . 10", ". . . 07* . . ."}},
    {"本期和后面某个号码正好隔5个数的号码有几个", {"05* . . . . . 11"}},
    {"本期有一对连号、后面紧跟隔1个数的号码，是为1，不是为0", {"05* 06* . 08*"}},
}};

namespace {

std::string Place(const std::string& place) {
    const bool counts = place.ends_with('*');
    const bool blue = place.starts_with('+');
    const std::string number =
        place == "." ? "&nbsp;&nbsp;" : Replace(Replace(place, "*", ""), "+", "");
    const char* ground = place == "." ? "#339966" : counts ? "#FFE55C" : "#FFF8E0";
    const char* ink = blue ? "#0000FA" : "#1E2624";
    return std::string("<td width='26' align='center' bgcolor='") + ground +
           "'><span style='color:" + ink + (counts ? ";font-weight:bold" : "") + "'>" + number +
           "</span></td>";
}

}  // namespace

std::string CounterTip(std::size_t counter) {
    const CounterMeaning& tip = kCounterMeanings[counter];
    const auto end = std::ranges::find(tip.draws, nullptr);
    const std::string heading = Replace(kTrendCounters[counter].heading, "<", "&lt;");
    std::string html = "<p><b>" + heading + "</b>　" + tip.sentence +
                       "。</p><table cellspacing='1' cellpadding='3'>";
    for (auto draw = tip.draws.begin(); draw != end; ++draw) {
        const auto before = end - draw - 1;
        html += "<tr><td style='white-space:nowrap'>" +
                (before == 0 ? "本期" : "前" + std::to_string(before) + "期") + "</td>";
        for (const std::string& place : Split(*draw, " ")) html += Place(place);
        html += "</tr>";
    }
    return html + "</table>";
}

}  // namespace ssq
