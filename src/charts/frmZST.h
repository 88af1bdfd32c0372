// The red-ball trend chart with rows to pick the next draw's numbers in.
#pragma once

#include <QWidget>
#include <string>

#include "ui/qt/PanelContext.h"

class QComboBox;
class QGroupBox;

namespace ssq {

class GridView;
class IssueCombo;

class frmZST final : public QWidget {
  public:
    explicit frmZST(const PanelContext& context, QWidget* parent = nullptr);

  private:
    void Analyse();
    void Export();

    PanelContext context_;
    IssueCombo* cboSdate_;
    IssueCombo* cboEdate_;
    QComboBox* cboZtype_;
    QGroupBox* results_;
    GridView* vs1_;
    std::string pickRowList_;
};

}  // namespace ssq
