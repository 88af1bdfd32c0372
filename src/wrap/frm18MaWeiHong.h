// The red wrap's panel.
#pragma once

#include "ui/qt/RangePanel.h"

namespace ssq {

class frm18MaWeiHong final : public RangePanel {
  public:
    explicit frm18MaWeiHong(const PanelContext& context, QWidget* parent = nullptr);
};

}  // namespace ssq
