// The number-segment chart's panel.
#pragma once

#include "ui/qt/RangePanel.h"

namespace ssq {

class frmWeizhi1107568 final : public RangePanel {
  public:
    explicit frmWeizhi1107568(const PanelContext& context, QWidget* parent = nullptr);

  private:
    void ShowSegments();
};

}  // namespace ssq
