// The blind test's panel: a method is replayed over draws it has not seen, and what it hits is held
// against what as many numbers picked at random would hit.
#pragma once

#include <QStringList>
#include <set>
#include <string>
#include <vector>

#include "ui/qt/Panel.h"

class QBoxLayout;
class QComboBox;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSplitter;

namespace ssq {

class BandChart;
class GridView;
class ProgressStrip;

class frmMangCe final : public Panel {
  public:
    explicit frmMangCe(const PanelContext& context, QWidget* parent = nullptr);

    // Puts these texts into the controls of that name; a text that a list does not have is left
    // out.
    void TakeSettings(const ControlTexts& settings);

  private:
    void BuildInputs(QBoxLayout* column);
    void BuildSettings(QHBoxLayout* row);
    void BuildResults(QBoxLayout* column);
    void LoadDefaults();
    void ShowSettings();

    void StartOrStop();

    QComboBox* cboFangFa_;
    QHBoxLayout* settings_;
    QLineEdit* txtXXQS_;
    QComboBox* cboDMGS_;
    QComboBox* cboSmGs_;
    QComboBox* cboycGs_;
    QLineEdit* txtGL_;
    QComboBox* cboWhere_;
    QComboBox* CboNUM_;
    QComboBox* cboFxqs_;
    QLineEdit* txtK_;
    QRadioButton* optRe_;
    QRadioButton* optLeng_;
    QLabel* lblGongShi_;
    QRadioButton* optRed_;
    QRadioButton* optBLUE_;
    QRadioButton* optDW_;
    QLineEdit* TxtMzs_;
    QLineEdit* TxtMze_;
    QLabel* lblFangAn_;
    QComboBox* cboN_;
    QPushButton* Command1_;
    ProgressStrip* strip_;
    QGroupBox* Frame2_;
    QLabel* lblJieGuo_;
    BandChart* ZST_;
    GridView* vs1_;
};

}  // namespace ssq
