// The draw that the formulas forecast, and the numbers that they name for it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Regex.h"
#include "draws/Draw.h"
#include "formulas/BMHZ.h"

namespace ssq {

struct Session;

// The draw after the end issue, which may not have taken place yet.
class NextDraw {
  public:
    // False after a failure that has been shown.
    bool ReadAfter(Session& session, const std::string& endIssue);

    const std::string& issue() const { return issue_; }
    // RedList, or "未开奖".
    const std::string& drawText() const { return drawText_; }

    // How many of the comma text's numbers were drawn, as cell text; "未开奖" before the draw.
    std::string HitsOf(const std::string& numbers) const;

    // The headings over the forecast numbers and over their hits.
    std::string NumbersHeading() const;
    std::string HitsHeading() const;

  private:
    std::string issue_;
    std::string drawText_;
    std::optional<Regex> anyRed_;
};

// The six numbers that a formula names for the draw after the newest one, as comma text; empty
// where the formula reaches behind the draws given (at most kFormulaDraws are looked at).
std::string ForecastNumbers(const std::vector<Draw>& newestFirst, ShiftFormula formula);

}  // namespace ssq
