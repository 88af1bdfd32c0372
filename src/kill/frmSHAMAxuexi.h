// The settings of kill learning; accepted when they have been saved.
#pragma once

#include "kill/KillSettings.h"
#include "ui/qt/PanelDialog.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace ssq {

class frmSHAMAxuexi final : public PanelDialog {
  public:
    explicit frmSHAMAxuexi(const PanelContext& context, QWidget* parent = nullptr);

  private:
    void Load();
    void Propose(int dmgs);
    void Show(const KillProposal& proposal);
    void RestoreDefaults();
    void Save();

    KillSettings opened_;
    QComboBox* size_;
    QLineEdit* xxqs_;
    QLineEdit* rate_;
    QCheckBox* tolerant_;
    QComboBox* rc_;
};

}  // namespace ssq
