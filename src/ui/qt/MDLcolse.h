// The entries of a window's system menu.
#pragma once

class QWidget;

namespace ssq {

// Takes entries out of a window's system menu: with a flag above 0 minimize and maximize,
// otherwise close (the window then ends by its own buttons only).
void RemoveCloseEntry(QWidget& window, int flag);

}  // namespace ssq
