#include "trial/Method.h"

#include <utility>

#include "base/text.h"

namespace ssq {

std::unique_ptr<Method> MakeMethod(const TrialMethod& settings) {
    return std::visit([](const auto& each) { return MakeMethod(each); }, settings);
}

RedSet RedSetOf(std::span<const int> numbers) {
    RedSet set;
    for (const int number : numbers) set.Add(number);
    return set;
}

std::string TwoDigitList(std::span<const int> numbers) {
    std::vector<std::string> items;
    items.reserve(numbers.size());
    for (const int number : numbers) items.push_back(TwoDigits(number));
    return Join(items, ",");
}

TrackPrediction HitWhen(double chance, std::function<bool(const Draw&)> isHit) {
    return {OddsOfHit(chance),
            [isHit = std::move(isHit)](const Draw& draw) { return isHit(draw) ? 1.0 : 0.0; },
            {}};
}

}  // namespace ssq
