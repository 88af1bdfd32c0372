// The settings of banker learning.
#pragma once

#include "ui/qt/PanelDialog.h"

class QComboBox;
class QLineEdit;

namespace ssq {

class frmXUEXI final : public PanelDialog {
  public:
    explicit frmXUEXI(const PanelContext& context, QWidget* parent = nullptr);

  private:
    void Load();
    void Save();

    QLineEdit* periods_;
    QComboBox* bankers_;
};

}  // namespace ssq
