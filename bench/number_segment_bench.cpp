// The place of a draw among all combinations as arithmetic against the scan that joins and
// compares every combination before it.
#include <string>
#include <vector>

#include "Ratio.h"
#include "base/text.h"
#include "charts/NumberSegments.h"
#include "charts/rowLngZST.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "support/TestDatabase.h"

namespace {

std::vector<std::string> TwoDigitTexts() {
    std::vector<std::string> texts;
    for (int number = 0; number <= ssq::kReds; ++number) texts.push_back(ssq::TwoDigits(number));
    return texts;
}

std::int32_t RankByScan(const std::string& wanted) {
    static const std::vector<std::string> kTexts = TwoDigitTexts();
    constexpr std::size_t kLast = ssq::kReds;
    const auto& t = kTexts;
    std::int32_t rank = 0;
    for (std::size_t a = 1; a <= kLast; ++a)
        for (std::size_t b = a + 1; b <= kLast; ++b)
            for (std::size_t c = b + 1; c <= kLast; ++c)
                for (std::size_t d = c + 1; d <= kLast; ++d)
                    for (std::size_t e = d + 1; e <= kLast; ++e)
                        for (std::size_t f = e + 1; f <= kLast; ++f) {
                            ++rank;
                            const std::string text = t[a] + "," + t[b] + "," + t[c] + "," + t[d] +
                                                     "," + t[e] + "," + t[f];
                            if (text == wanted) return rank;
                        }
    return 0;
}

template <typename Rule>
std::vector<std::int32_t> Ranks(const std::vector<std::string>& texts, Rule rank) {
    std::vector<std::int32_t> ranks;
    for (const std::string& text : texts) ranks.push_back(rank(text));
    return ranks;
}

}  // namespace

int main() {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    const auto draws = ssq::ReadAllDraws(database.session());
    ssq::RequireEqual(draws.has_value(), "number segments, draws");
    constexpr std::size_t kEvery = 50;  // a scan of the whole history takes minutes
    std::vector<std::string> texts{
        "01,02,03,04,05,06", "28,29,30,31,32,33", "02,01,03,04,05,06", "1,2,3,4,5,6", "",
        "01,02,03,04,05,34"};
    for (std::size_t i = 0; i < draws->size(); i += kEvery) texts.push_back((*draws)[i].reds);

    std::vector<std::int32_t> expected;
    std::vector<std::int32_t> ranks;
    const double scanSeconds = ssq::SecondsOf(1, [&] { expected = Ranks(texts, RankByScan); });
    const double seconds = ssq::SecondsOf(5, [&] {
        ranks = Ranks(texts, [](const auto& text) { return ssq::CombinationRank(text); });
    });
    ssq::RequireEqual(ranks == expected, "number segments, places");
    ssq::PrintRatio("number segments, places of a sample of draws", scanSeconds, seconds);

    const double updateSeconds =
        ssq::SecondsOf(1, [&] { ssq::UpdateSegmentTable(database.session()); });
    std::printf("number segments, whole table: %.3f ms\n", updateSeconds * 1e3);
    return 0;
}
