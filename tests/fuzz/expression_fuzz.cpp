// Any bytes as a formula: an error or a value, soon, and within the limits.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "tools/Expression.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const ssq::ExpressionResult result = ssq::EvaluateExpression(text);
    if (result.error) {
        if (result.error->reason.empty() || result.error->place > size + 1) std::abort();
        return 0;
    }
    if (const auto* number = std::get_if<double>(&result.value)) {
        if (!std::isfinite(*number)) std::abort();
    }
    if (ssq::IsText(result.value) &&
        std::get<std::string>(result.value).size() > ssq::kLongestExpressionText) {
        std::abort();
    }
    return 0;
}
