// Kill recommendation: the front panel of kill learning.
#pragma once

#include <string>

#include "ui/qt/Panel.h"

class QGroupBox;
class QPushButton;

namespace ssq {

class GridView;
class IssueCombo;
class ProgressStrip;

class frmSHAMA final : public Panel {
  public:
    explicit frmSHAMA(const PanelContext& context, QWidget* parent = nullptr);

    // Recommends for the `periods` draws that end with `endIssue`.
    void CallCommand1(const std::string& endIssue, int periods);

  protected:
  private:
    void AddToPlan();
    void Load();
    void TakePeriod(int periods);
    void Recommend();
    void Learn();
    void Release();
    void ShowRecords();

    IssueCombo* start_;
    IssueCombo* end_;
    QPushButton* learnButton_;
    ProgressStrip* progress_;
    QGroupBox* resultGroup_;
    GridView* vs1_;
    bool learning_ = false;
};

}  // namespace ssq
