// The panel of the follow statistics.
#pragma once

#include "ui/qt/RangePanel.h"

class QComboBox;
class QLineEdit;

namespace ssq {

class frmHongHaomaGens final : public RangePanel {
  public:
    explicit frmHongHaomaGens(const PanelContext& context, QWidget* parent = nullptr);

  private:
    bool Analyse(Run& run);

    QLineEdit* txtHM_;
    QComboBox* cboN_;
};

}  // namespace ssq
