// How large and where a window opens.
#pragma once

#include <QSize>

class QWidget;

namespace ssq {

// Gives the window its first size, no larger than its screen leaves room for. False when it had to
// be made smaller.
bool FitToScreen(QWidget& window, QSize wished);

// FitToScreen for a window that shows much: one that had to be made smaller opens maximised.
void FitOrMaximize(QWidget& window, QSize wished);

// Shows the window in front of the others, also out of the task bar. One that was not open comes
// up centred on its owner, a little lower for each that stands there already.
void BringUp(QWidget& window);

}  // namespace ssq
