// Banker learning at 100 draws, all five sizes: the rule on texts against the bit masks.
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "Ratio.h"
#include "banker/PositionRates.h"
#include "banker/fenXi.h"
#include "base/combinations.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "support/TestDatabase.h"

namespace {

using ssq::DrawBalls;

constexpr int kLearningDraws = 100;
constexpr const char* kCandidateText = "0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,23";

struct History {
    std::vector<std::string> texts;  // newest first
    std::vector<DrawBalls> balls;
};

History ReadHistory(ssq::Session& session) {
    History history;
    ssq::Recordset rows;
    ssq::QueryOrTell(session, "Select top 105 * from cphm order by kjqh desc", rows);
    for (; !rows.eof(); rows.MoveNext()) {
        history.texts.push_back(rows.Text("kjhm"));
        DrawBalls& balls = history.balls.emplace_back();
        for (std::size_t i = 0; i < balls.size(); ++i) {
            balls[i] = static_cast<int>(rows.Int("a" + std::to_string(i + 1)));
        }
    }
    return history;
}

std::vector<double> RatesOnTexts(ssq::Host& host, const History& history, int size) {
    using List = std::vector<std::string> (*)(std::string_view);
    constexpr List kLists[] = {ssq::ComboList1, ssq::ComboList2, ssq::ComboList3, ssq::ComboList4,
                               ssq::ComboList5};
    const std::vector<std::string> formulas = kLists[size - 1](kCandidateText);
    std::vector<double> rates;
    for (std::size_t i = 0; i + 1 < formulas.size(); ++i) {
        rates.push_back(ssq::FormulaHitRate(host, history.texts, formulas[i], kLearningDraws));
    }
    return rates;
}

std::vector<double> RatesOnMasks(const History& history, std::span<const int> candidates,
                                 int size) {
    std::vector<double> rates;
    const ssq::PositionRates masks(history.balls, kLearningDraws);
    masks.ForEachFormula(candidates, size, [&](std::span<const int>, double rate) {
        rates.push_back(rate);
        return true;
    });
    return rates;
}

}  // namespace

int main() {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    const History history = ReadHistory(database.session());
    std::vector<int> candidates;
    for (const std::string& item : ssq::Split(kCandidateText, ",")) {
        candidates.push_back(std::stoi(item));
    }

    double baselineSeconds = 0;
    double seconds = 0;
    for (int size = 1; size <= 5; ++size) {
        std::vector<double> expected;
        std::vector<double> rates;
        baselineSeconds +=
            ssq::SecondsOf(1, [&] { expected = RatesOnTexts(database.host(), history, size); });
        seconds += ssq::SecondsOf(5, [&] { rates = RatesOnMasks(history, candidates, size); });
        ssq::RequireEqual(rates == expected, "banker learning, " + std::to_string(size));
    }
    ssq::PrintRatio("banker learning, all sizes at 100 draws", baselineSeconds, seconds);
    return 0;
}
