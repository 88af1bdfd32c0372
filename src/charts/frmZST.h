// The red-ball trend chart with rows to pick the next draw's numbers in.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "ui/qt/PanelContext.h"

class QComboBox;
class QGroupBox;
class QPoint;

namespace ssq {

class GridView;
class IssueCombo;

class frmZST final : public QWidget {
  public:
    explicit frmZST(const PanelContext& context, QWidget* parent = nullptr);

    GridView& grid() { return *vs1_; }

    // Hides or shows the columns of the numbers 1 to 33.
    void HideChart(bool hidden);

    // The right button on the grid: the main window raises the menu "表格" at this place.
    std::function<void(const QPoint& place)> onPopup;

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
