// Custom formulas: the user's list, and how it would have done over a stretch of draws.
#pragma once

#include <string>
#include <vector>

#include "tools/MDL_zdy_dm.h"
#include "ui/qt/Panel.h"

class QBoxLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QRadioButton;
class QTextBrowser;

namespace ssq {

class ChanceRemark;

class ZDY_XDM final : public Panel {
  public:
    ZDY_XDM(const PanelContext& context, QWidget* parent);

    // F1 to F3 and Enter in the edit line, Delete in the list.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildConditions(QBoxLayout& column);
    QWidget* BuildFormulas();
    QWidget* BuildResults();
    void ShowHelp();

    FormulaTarget target() const;
    std::vector<std::string> formulas() const;
    QString EditedFormula() const;
    void ShowFormulas(const std::vector<std::string>& formulas);

    // CheckRange of the hits; the focus returns to the first of them.
    bool CheckHits();
    void StoreFormulas();

    void AddFormula();
    // The formula that is selected in the list; null without one.
    QListWidgetItem* MarkedFormula() const;
    void DeleteFormula();
    void ReplaceFormula();
    void LoadFile();
    void SaveFile();
    bool Test(Run& run);

    QLineEdit* text1_;
    QListWidget* list1_;
    QLineEdit* txtMzs_;
    QLineEdit* txtMze_;
    QLineEdit* txtSdate_;
    QLineEdit* txtEdate_;
    QRadioButton* optBLUE_;
    QRadioButton* optDW_;
    QTextBrowser* list2_;
    ChanceRemark* remark_;
};

}  // namespace ssq
