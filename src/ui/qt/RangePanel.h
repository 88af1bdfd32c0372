// The panel that most analyses have: a range of issues, more inputs, a run button and one grid.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "draws/public_fun.h"
#include "ui/ColumnTable.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/Panel.h"

class QBoxLayout;
class QGroupBox;
class QHBoxLayout;
class QVBoxLayout;

namespace ssq {

class ChanceRemark;
class GridView;

class RangePanel : public Panel {
  public:
    struct RangeForm {
        Form form;
        int startEntry = kStartWide;
        const char* inputsName = "Frame1";  // of the group around the inputs; null for no group
        const char* inputsCaption = "分析条件";
        int drawsBefore = 0;  // that the analysis needs before the range
    };

    RangePanel(const PanelContext& context, QWidget* parent, const RangeForm& form);

    void TakeNewDraws() override;

  protected:
    // The inputs' row, behind the two combos; the panel's whole column.
    QHBoxLayout* inputs() const { return inputs_; }
    QVBoxLayout* column() const { return column_; }
    IssueCombo& start() const { return *start_; }
    IssueCombo& end() const { return *end_; }
    PeriodRange range() const;

    // A button behind the inputs that runs an analysis; `work` answers whether it succeeded. The
    // first one added is the panel's main button.
    struct RunButton {
        const char* name;
        const char* caption;
        bool isDisabledInRun = false;
        bool staysAfterFailure = false;     // disabled, until the panel is opened anew
        const char* busyCaption = nullptr;  // while it is disabled
    };
    QPushButton* AddRunButton(const RunButton& button, std::function<bool(Run&)> work);

    // The strip that a run shows from its first progress on; to be added before the button.
    ProgressStrip* AddProgress(const char* busyText);

    // The group around the grid vs1, at the end of the column; to be added behind the main button,
    // which the empty grid's link presses.
    GridView* AddResults(const char* groupName, const char* caption);
    GridView& results() const { return *vs1_; }
    // The chance remark under the grid: Show fills it from the report. `blindTest` gives the
    // settings that its link opens the blind test with, as they are when the report is shown;
    // without it there is no link.
    void AddRemark(std::function<ControlTexts()> blindTest = {});
    // Empties the grid and its remark.
    void ClearResults();
    void SetResultsCaption(const std::string& caption);
    QString resultsCaption() const;

    // Shows a report with its last rows in view. False for none, or when a newer run has taken
    // the place of the one that brings it; the grid then stays.
    bool Show(std::optional<GridReport> report);

  private:
    QVBoxLayout* column_;
    QHBoxLayout* inputs_;
    IssueCombo* start_;
    IssueCombo* end_;
    ProgressStrip* strip_ = nullptr;
    QGroupBox* resultsGroup_ = nullptr;
    const Run* run_ = nullptr;  // the one whose work has control
    GridView* vs1_ = nullptr;
    ChanceRemark* remark_ = nullptr;
    std::function<ControlTexts()> blindTest_;
};

}  // namespace ssq
