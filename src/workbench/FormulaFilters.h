// The filters over the statistics grid, for the workbench and the omission screen.
#pragma once

#include <optional>
#include <string>

#include "ui/ColumnTable.h"
#include "workbench/FormulaStatistics.h"

namespace ssq {

// A formula passes when its tested column reaches a threshold, or when its current value lies
// above its own maximum of the past; how far above is shown as the excess.
struct FormulaFilter {
    FormulaColumn tested;
    FormulaColumn current;
    FormulaColumn maximum;
    const char* excessHeading;
    const char* captionName;
    const char* maximumKeyword;  // asks for those above their maximum; null where there is none
};

inline constexpr FormulaFilter kGapFilter{kGapColumn, kGapColumn,     kMaxGapColumn,
                                          "遗漏超出", "当前遗漏次数", "最大遗漏"};
inline constexpr FormulaFilter kRunFilter{kRunColumn, kRunColumn,     kMaxRunColumn,
                                          "连出超出", "当前连出次数", "最大连出"};
// The rate has no maximum of its own and shows the excess of the run.
inline constexpr FormulaFilter kRateFilter{kRateColumn, kRunColumn, kMaxRunColumn,
                                           "连出超出",  "当现概率", nullptr};

// What the tested column must reach; empty asks for those above their maximum.
using FormulaThreshold = std::optional<double>;

// The threshold that a text of the workbench means. Where there is a keyword the sign is dropped
// and what is no number counts as 0; the text of a rate counts by its leading number.
FormulaThreshold ThresholdOf(const FormulaFilter& filter, const std::string& text);

// The caption of the report tells how many formulas passed.
struct FilterReport : GridReport {
    std::string issueCaption;  // the issues that the filter stands on
};

// Filters the rows of the statistics grid against the draw after `endIssue`; nothing after a
// failure that has been shown.
std::optional<FilterReport> FilterForWorkbench(Session& session, const ResultGrid& statistics,
                                               const std::string& endIssue,
                                               const FormulaFilter& filter,
                                               const std::string& thresholdText);

// The same for the omission screen; `condition` is the text of the statistics' condition.
std::optional<FilterReport> FilterForOmissionScreen(Session& session, const ResultGrid& statistics,
                                                    const std::string& endIssue,
                                                    const std::string& condition,
                                                    const FormulaFilter& filter,
                                                    FormulaThreshold threshold);

}  // namespace ssq
