// Numbers, dates and number lists as users type them and pages hold them.
#include <cmath>

#include "base/ConvertYlDate.h"
#include "base/RedSet.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/public_fun.h"
#include "fuzz/Fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = ssq::FuzzText(data, size);
    const auto number = ssq::ParseNumber(text);
    ssq::Promise(!number || std::isfinite(*number));
    ssq::WholePart(text);
    const double value = ssq::Val(text);
    ssq::NumberText(value);
    ssq::NumberText(ssq::Round(value));
    ssq::WholePart(value);
    if (const auto date = ssq::ParseDate(text)) {
        ssq::Promise(ssq::ParseDate(ssq::DateText(*date)) == date);
        ssq::AddDays(*date, 2);
    }
    ssq::LunarDay(ssq::LunarText(text));
    ssq::Promise(ssq::RedSet::FromList(text).Count() <= ssq::RedSet::kLargest);
    ssq::PadNumberList(text);
    int count = 0;
    ssq::CountCommonBalls("01,02,03,04,05,06", text, 0, 6, count);
    ssq::Promise(ssq::Join(ssq::Split(text, ","), ",") == text);
    ssq::Characters(text, 2, 3);
    return 0;
}
