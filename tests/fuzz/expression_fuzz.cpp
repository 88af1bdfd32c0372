// Any bytes as a formula: an error or a value, soon, and within the limits.
#include <cmath>

#include "fuzz/Fuzz.h"
#include "tools/Expression.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ssq::ExpressionResult result = ssq::EvaluateExpression(ssq::FuzzText(data, size));
    if (result.error) {
        ssq::Promise(!result.error->reason.empty() && result.error->place <= size + 1);
        return 0;
    }
    if (const auto* number = std::get_if<double>(&result.value)) {
        ssq::Promise(std::isfinite(*number));
    }
    if (const auto* text = std::get_if<std::string>(&result.value)) {
        ssq::Promise(text->size() <= ssq::kLongestExpressionText);
    }
    return 0;
}
