#include "workbench/Forecast.h"

#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"

namespace ssq {

namespace {

constexpr const char* kNotDrawn = "未开奖";
// No shifted number is among these, for forecasts have nothing to hit yet.
constexpr const char* kNoTarget = "99,99,99,99,99,99";

}  // namespace

bool NextDraw::ReadAfter(Session& session, const std::string& endIssue) {
    const std::int32_t next = NextIssueDraw(session, endIssue, drawText_);
    if (next == 0) return false;
    issue_ = std::to_string(next);
    anyRed_.reset();
    if (drawText_ != kNotDrawn) anyRed_.emplace(Replace(drawText_, ",", "|"));
    return true;
}

std::string NextDraw::HitsOf(const std::string& numbers) const {
    return anyRed_ ? std::to_string(anyRed_->Count(numbers).value_or(0)) : kNotDrawn;
}

std::string NextDraw::NumbersHeading() const {
    return issue_ + "期公式预测号码";
}

std::string NextDraw::HitsHeading() const {
    return ShortIssue(issue_) + "期命中";
}

std::string ForecastNumbers(const std::vector<Draw>& newestFirst, ShiftFormula formula) {
    const auto draw = static_cast<std::size_t>(formula.q - 1);
    if (draw >= newestFirst.size()) return {};
    int hits = 0;
    return ShiftDraw(kNoTarget, newestFirst[draw].reds, formula.b, hits, ShiftMode::kMinus);
}

}  // namespace ssq
