// The chart of one number's heat positions.
#pragma once

#include <string>

#include "ui/qt/Panel.h"

namespace ssq {

class ResultGrid;

class frmLrHMfx final : public Panel {
  public:
    // Reads the grid of the heat ranking once. `number` is a two-digit text.
    frmLrHMfx(const PanelContext& context, const ResultGrid& grid, const std::string& number,
              QWidget* parent);
};

}  // namespace ssq
