// The omission screen: one-click filters over the workbench's statistics, and how often each
// number is named by the formulas that passed.
#pragma once

#include <string>

#include "ui/qt/Panel.h"
#include "workbench/FormulaFilters.h"

class QGroupBox;
class QLineEdit;

namespace ssq {

class GridView;
class frmShaHao;

class frmShaHaoYLSX final : public Panel {
  public:
    // Reads the statistics and the inputs of `workbench`, which must outlive it.
    frmShaHaoYLSX(const PanelContext& context, frmShaHao& workbench);

    // Takes the workbench's end issue and shows the screen. A result for another issue goes.
    void Open();

  private:
    void Filter(const FormulaFilter& filter, FormulaThreshold threshold);
    void FilterReaching(const FormulaFilter& filter, const QLineEdit& box);
    void Count();

    const frmShaHao& workbench_;
    QGroupBox* operations_;
    QLineEdit* txtYLCS_;
    QLineEdit* txtLC_;
    QLineEdit* txtGL_;
    QGroupBox* results_;
    GridView* vs1_;
    std::string endIssue_;
};

}  // namespace ssq
