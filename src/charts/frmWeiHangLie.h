// The tail row-column chart's panel.
#pragma once

#include "ui/qt/RangePanel.h"

class QComboBox;

namespace ssq {

class frmWeiHangLie final : public RangePanel {
  public:
    explicit frmWeiHangLie(const PanelContext& context, QWidget* parent = nullptr);

  private:
    bool Analyse();

    QComboBox* cboZtype_;
    QComboBox* cboHM_;
};

}  // namespace ssq
