// The panel of the heat ranking.
#pragma once

#include <QPointer>

#include "stats/frmLrHMfx.h"
#include "ui/qt/RangePanel.h"

class QComboBox;

namespace ssq {

class frmLengRe final : public RangePanel {
  public:
    explicit frmLengRe(const PanelContext& context, QWidget* parent = nullptr);

  private:
    bool Rank(Run& run);
    void ShowCourse();

    QComboBox* cboFxqs_;
    QPointer<frmLrHMfx> course_;
};

}  // namespace ssq
