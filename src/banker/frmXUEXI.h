// The settings of banker learning.
#pragma once

#include <QDialog>

#include "ui/qt/PanelContext.h"

class QComboBox;
class QLineEdit;

namespace ssq {

class frmXUEXI final : public QDialog {
  public:
    explicit frmXUEXI(const PanelContext& context, QWidget* parent = nullptr);

  private:
    void Load();
    void Save();

    PanelContext context_;
    QLineEdit* periods_;
    QComboBox* bankers_;
};

}  // namespace ssq
