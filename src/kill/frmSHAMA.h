// Kill recommendation: the front panel of kill learning.
#pragma once

#include <string>

#include "kill/KillSettings.h"
#include "ui/qt/RangePanel.h"

namespace ssq {

class frmSHAMA final : public RangePanel {
  public:
    explicit frmSHAMA(const PanelContext& context, QWidget* parent = nullptr);

    // Recommends for the `periods` draws that end with `endIssue`.
    void CallCommand1(const std::string& endIssue, int periods);

  private:
    void TakePeriod(int periods);
    void Recommend();
    void Learn();
    void ShowRecords();

    KillSettings shown_;  // of the recommendation on show
    ProgressStrip* progress_;
    QPushButton* learnButton_;
};

}  // namespace ssq
