// The twin panels of the gaps and of the sums of a draw's reds.
#pragma once

#include "ui/qt/RangePanel.h"

namespace ssq {

class frmJianGe final : public RangePanel {
  public:
    explicit frmJianGe(const PanelContext& context, QWidget* parent = nullptr);
};

class frmHeZhi final : public RangePanel {
  public:
    explicit frmHeZhi(const PanelContext& context, QWidget* parent = nullptr);
};

}  // namespace ssq
