// The popup menus that the main window raises over the grids of other panels.
#pragma once

#include "ui/qt/PanelContext.h"

class QWidget;

namespace ssq {

// Gives the panel's grid vs1 its popup, where the menu table has one for it.
void AttachPopup(const PanelContext& context, QWidget& panel);

}  // namespace ssq
