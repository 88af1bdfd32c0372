// The tail-digit chart's panel.
#pragma once

#include "ui/qt/RangePanel.h"

namespace ssq {

class frmWeiShu final : public RangePanel {
  public:
    explicit frmWeiShu(const PanelContext& context, QWidget* parent = nullptr);
};

}  // namespace ssq
