// The blue wrap's panel.
#pragma once

#include "ui/qt/RangePanel.h"

namespace ssq {

class frmWeiLan final : public RangePanel {
  public:
    explicit frmWeiLan(const PanelContext& context, QWidget* parent = nullptr);
};

}  // namespace ssq
