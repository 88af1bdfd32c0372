// The panel of the heat ranking.
#pragma once

#include <QPointer>
#include <string>

#include "stats/frmLrHMfx.h"
#include "ui/qt/RangePanel.h"

class QComboBox;

namespace ssq {

class frmLengRe final : public RangePanel {
  public:
    explicit frmLengRe(const PanelContext& context, QWidget* parent = nullptr);

  private:
    bool Rank(Run& run);
    void TakeCell(int row, int col);
    void ShowCourse();

    QComboBox* cboFxqs_;
    bool isPressed_ = false;
    std::string pointedText_;  // of the cell that the popup was raised on
    QPointer<frmLrHMfx> course_;
};

}  // namespace ssq
