// The blind test's panel: a method is replayed over draws it has not seen, and what it hits is held
// against what as many numbers picked at random would hit.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "trial/BlindTest.h"
#include "ui/qt/Panel.h"

class QBoxLayout;
class QComboBox;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace ssq {

class BandChart;
class GridView;
class ProgressStrip;

class frmMangCe final : public Panel {
  public:
    explicit frmMangCe(const PanelContext& context, QWidget* parent = nullptr);

    // Puts the texts into the controls of these names; one that a list does not have is left out.
    void TakeSettings(const ControlTexts& settings);

  private:
    void BuildConditions(QBoxLayout* column);
    void BuildLearning(QHBoxLayout* row);
    void BuildFormula(QHBoxLayout* row);
    void BuildHeat(QHBoxLayout* row);
    void BuildOwnFormulas(QHBoxLayout* row);
    void BuildResults(QBoxLayout* column);
    void LoadDefaults();
    // The controls of the chosen method, and no others.
    void ShowSettings();
    // How many formulas or lines the method takes from elsewhere.
    void ShowSources();

    // The settings as they stand in the controls; nothing after telling the user what is wrong.
    std::optional<TrialSettings> Settings() const;
    std::optional<TrialMethod> Method() const;
    std::optional<TrialMethod> Bankers() const;
    std::optional<TrialMethod> Kills() const;
    std::optional<TrialMethod> SingleFormula() const;
    std::optional<TrialMethod> Heat() const;
    std::optional<TrialMethod> OwnFormulas() const;
    std::optional<int> Window() const;
    // Tells of a fault and answers whether there is one.
    bool Refuse(const std::string& fault) const;
    // Of the number filter, without blanks around it; empty without one.
    std::string StandingPlan() const;
    FormulaTarget Target() const;

    void StartOrStop();
    bool Test(const TrialSettings& settings, Run& run);
    void ShowResult(TrialResult result);
    void DrawCourses(const TrialResult& result);

    QComboBox* cboFangFa_;
    QHBoxLayout* settingsRow_;
    QLineEdit* txtXXQS_;
    QComboBox* cboDMGS_;
    QComboBox* cboSmGs_;
    QComboBox* cboycGs_;
    QLineEdit* txtGL_;
    QComboBox* cboWhere_;
    QComboBox* cboNum_;
    QComboBox* cboFxqs_;
    QRadioButton* optRe_;
    QRadioButton* optLeng_;
    QLineEdit* txtK_;
    QLabel* formulas_;
    QRadioButton* optRed_;
    QRadioButton* optBLUE_;
    QRadioButton* optDW_;
    QLineEdit* txtMzs_;
    QLineEdit* txtMze_;
    QLabel* plan_;
    QComboBox* cboN_;
    QPushButton* start_;
    ProgressStrip* progress_;
    QGroupBox* resultsGroup_;
    QLabel* lblJieGuo_;
    BandChart* chart_;
    GridView* vs1_;
    bool isRunning_ = false;
    int shownMethod_ = -1;
    std::map<int, QString> periods_;     // learning draws by method
    std::vector<TrialSettings> tested_;  // different ones that judged any draw, since the opening
};

}  // namespace ssq
