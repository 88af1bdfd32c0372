// What the user's own formulas give for a draw, and how often that hit the draw after it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "draws/public_fun.h"

namespace ssq {

class Run;
struct NumberSource;
struct Draw;
struct Session;

// What the formulas aim at.
enum class FormulaTarget { kRed, kBlue, kTail };

// "红球", "蓝球" or "尾数".
std::string TargetWord(FormulaTarget target);

// The results of all formulas for a draw as comma text of at least two digits each. A result whose
// digits occur in the text so far is left out; 00 is written 10, but for a tail of 0 that stands
// alone. In a formula kjqh and a1 to a7 are replaced by the draw's digits as text, before anything
// is read: a12 is the digits of a1 and a 2. Nothing at the first formula that has no number as its
// result, with the formula, the place and the reason in `errorText`.
std::optional<std::string> EvaluateFormulas(const Draw& draw,
                                            const std::vector<std::string>& formulas,
                                            FormulaTarget target, std::string& errorText);

// How many of the values are in the draw; one that stands twice counts twice.
int FormulaHits(const Draw& draw, const std::string& values, FormulaTarget target);

// The chance that `low` to `high` of the values are in a draw, counted so.
double ChanceOfFormulaHits(const std::string& values, FormulaTarget target, double low,
                           double high);

// The draws of a stretch on which to test the stored formulas, and how many hits count as right:
// texts that have passed CheckPeriod and CheckRange.
struct FormulaTest {
    PeriodRange range;
    std::string low;
    std::string high;
    FormulaTarget target = FormulaTarget::kRed;
};

// What the formulas name when so many of their hits, of `low` to `high`, count as right: one
// source, or none for counts that no draw can have. Tails name the reds that end in them, and only
// where one hit is enough, as two reds of a tail are one tail. A formula's error names nothing.
std::vector<NumberSource> FormulaSources(std::vector<std::string> formulas, FormulaTarget target,
                                         double low, double high);

struct FormulaTestReport {
    std::string lines;   // ended by CR LF
    std::string remark;  // what as many numbers picked at random would reach
};

// Each draw of the test against what the formulas give for the draw before it: the report's
// lines, ended by CR LF. Nothing when the run ends, after a message (a formula's error, no draws,
// the store's text), and without one when no formula is stored.
std::optional<FormulaTestReport> TestFormulas(Session& session, const FormulaTest& test, Run& run);

}  // namespace ssq
