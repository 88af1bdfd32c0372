// How many combinations of n there are out of m.
#pragma once

#include "ui/qt/Panel.h"

class QLabel;
class QLineEdit;

namespace ssq {

class frmMtoN final : public Panel {
  public:
    frmMtoN(const PanelContext& context, QWidget* parent);

  private:
    void Calculate();

    QLineEdit* txtM_;
    QLineEdit* txtN_;
    QLabel* result_;
};

}  // namespace ssq
