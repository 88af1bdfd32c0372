// The panel of the edge codes.
#pragma once

#include "ui/qt/RangePanel.h"

class QComboBox;

namespace ssq {

class frmBianMa final : public RangePanel {
  public:
    explicit frmBianMa(const PanelContext& context, QWidget* parent = nullptr);

  private:
    bool Analyse();

    QComboBox* cboZtype_;
    QComboBox* cboBN_;
    QComboBox* cboBMXT_;
    QComboBox* cboHMSX_;
};

}  // namespace ssq
