// The main trend chart's panel.
#pragma once

#include <string>

#include "ui/qt/RangePanel.h"

class QComboBox;

namespace ssq {

class frmZST final : public RangePanel {
  public:
    explicit frmZST(const PanelContext& context, QWidget* parent = nullptr);

  private:
    bool Analyse();

    QComboBox* cboZtype_;
    std::string pickRowList_;
};

}  // namespace ssq
