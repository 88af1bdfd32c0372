// The number-segment chart's panel.
#pragma once

#include <QPointer>

#include "ui/qt/RangePanel.h"

namespace ssq {

class frmQDDZ;

class frmWeizhi1107568 final : public RangePanel {
  public:
    explicit frmWeizhi1107568(const PanelContext& context, QWidget* parent = nullptr);
    ~frmWeizhi1107568() override;

  private:
    void ShowSegments();

    QPointer<frmQDDZ> segments_;
};

}  // namespace ssq
