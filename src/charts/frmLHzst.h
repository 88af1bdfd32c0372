// The consecutive-number chart's panel.
#pragma once

#include "ui/qt/RangePanel.h"

namespace ssq {

class frmLHzst final : public RangePanel {
  public:
    explicit frmLHzst(const PanelContext& context, QWidget* parent = nullptr);
};

}  // namespace ssq
