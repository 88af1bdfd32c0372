// Banker learning at 100 draws, all five sizes: the rule on texts against the bit masks.
#include <string>
#include <vector>

#include "Ratio.h"
#include "banker/PositionFormulas.h"
#include "base/combinations.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/public_fun.h"
#include "support/TestDatabase.h"

namespace {

constexpr int kLearningDraws = 100;
constexpr const char* kCandidateText = "0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,23";
constexpr double kThresholds[] = {30, 40, 50, 70, 80};

// The rule in its plain form, on draws as texts, newest first.
double FormulaHitRate(ssq::Host& host, const std::vector<std::string>& hm,
                      const std::string& formula, int xxqs) {
    int hits = 0;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(xxqs); ++i) {
        if (!host.Yield()) return 0;
        const std::vector<std::string> window =
            ssq::Split(ssq::Join({hm[i + 1], hm[i + 2], hm[i + 3], hm[i + 4]}, ","), ",");
        std::string picks;
        for (const std::string& position : ssq::Split(formula, ",")) {
            const std::string& ball = window.at(std::stoul(position));
            if (!ssq::Contains(picks, ball)) picks += ball + ",";
        }
        int count = 0;
        ssq::CountCommonBalls(hm[i], picks.substr(0, picks.size() - 1), 0, 0, count);
        if (count > 0) ++hits;
    }
    return ssq::Percent(hits, xxqs);
}

// Formulas and their rates, one to a line.
std::string LearnOnTexts(ssq::Host& host, const std::vector<std::string>& hm, int dmgs) {
    using List = std::vector<std::string> (*)(std::string_view);
    constexpr List kLists[] = {ssq::ComboList1, ssq::ComboList2, ssq::ComboList3, ssq::ComboList4,
                               ssq::ComboList5};
    const std::vector<std::string> formulas = kLists[dmgs - 1](kCandidateText);
    std::string good;
    for (std::size_t i = 0; i + 1 < formulas.size(); ++i) {
        const double rate = FormulaHitRate(host, hm, formulas[i], kLearningDraws);
        if (rate < kThresholds[dmgs - 1]) continue;
        good += formulas[i] + " " + ssq::NumberText(rate) + "\n";
    }
    return good;
}

std::string Lines(const std::vector<ssq::ScoredFormula>& formulas) {
    std::string lines;
    for (const auto& [positions, rate] : formulas) {
        lines += ssq::FormulaText(positions) + " " + ssq::NumberText(rate) + "\n";
    }
    return lines;
}

}  // namespace

int main(int argc, char**) {
    // Sizes four and five take the texts minutes in an unoptimised build.
    const int largest = argc > 1 ? 3 : ssq::kMostBankers;
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    std::vector<std::string> texts;
    std::vector<ssq::DrawBalls> balls;
    const auto draws = ssq::ReadDrawsUpTo(database.session(), "9999999", kLearningDraws + 5);
    for (const ssq::Draw& draw : draws.value()) {
        texts.push_back(draw.reds);
        balls.push_back(draw.balls);
    }
    double baselineSeconds = 0;
    double seconds = 0;
    for (int dmgs = 1; dmgs <= largest; ++dmgs) {
        std::string expected;
        std::vector<ssq::ScoredFormula> good;
        baselineSeconds +=
            ssq::SecondsOf(1, [&] { expected = LearnOnTexts(database.host(), texts, dmgs); });
        seconds += ssq::SecondsOf(5, [&] {
            good = *ssq::GoodFormulas(balls, {kLearningDraws, dmgs}, {});
        });
        ssq::RequireEqual(Lines(good) == expected, "banker learning, " + std::to_string(dmgs));
    }
    ssq::PrintRatio("banker learning, sizes 1 to " + std::to_string(largest) + " at 100 draws",
                    baselineSeconds, seconds);
    return 0;
}
