// The table of online sales.
#pragma once

#include "ui/qt/RangePanel.h"

namespace ssq {

class frmSale final : public RangePanel {
  public:
    explicit frmSale(const PanelContext& context, QWidget* parent = nullptr);

  private:
    bool Query();
    bool Update(Run& run);
    void TellStatus(const std::string& text);
};

}  // namespace ssq
