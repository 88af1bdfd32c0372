// The formula workbench: statistics of every shifting formula, filters over them, and the chart of
// one formula.
#pragma once

#include <QPointer>
#include <string>

#include "ui/qt/Panel.h"

class QBoxLayout;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QTabBar;

namespace ssq {

class ChanceRemark;
class GridView;
class IssueCombo;
class LineChart;
class ProgressStrip;
class ResultGrid;
class frmShaHaoYLSX;
struct FormulaFilter;

class frmShaHao final : public Panel {
  public:
    explicit frmShaHao(const PanelContext& context, QWidget* parent = nullptr);

    void TakeNewDraws() override;

    // Opens the second screen of filters, which reads what follows.
    void ShowOmissionScreen();

    const ResultGrid& statistics() const;
    std::string endIssue() const;
    std::string conditionText() const;

  private:
    void BuildInputs(QBoxLayout* column);
    void BuildTabs(QBoxLayout* column);
    void BuildFilters(QBoxLayout* views);
    void BuildChart(QBoxLayout* views);
    void DeclarePopups();

    bool FormulaStatistics(Run& run);
    void Filter(const FormulaFilter& filter, const QString& threshold);

    void SelectTab(int tab);
    void ShowView(int tab);
    void ShowOnly(int tab);
    void OpenChart(const GridView& view, int row);
    void ChangeChartLength();
    void DrawChart();

    IssueCombo* cboEdate_;
    QComboBox* cboWhere_;
    QComboBox* cboNum_;
    QLabel* nextDraw_;
    ProgressStrip* progress_;
    QTabBar* tab1_;
    GridView* vs1_;
    ChanceRemark* remark_;
    QGroupBox* filters_;
    QComboBox* cboYLCS_;
    QComboBox* cboYCCS_;
    QLineEdit* txtGL_;
    GridView* vs2_;
    QComboBox* cboZst_;
    LineChart* chart_;
    std::string chartKey_;  // the formula that tab 3 names; empty before the first
    QPointer<frmShaHaoYLSX> omissionScreen_;
};

}  // namespace ssq
