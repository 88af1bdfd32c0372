// How the program looks: one style, palette and font for all panels.
#pragma once

class QApplication;

namespace ssq {

// Sets the style and leaves quitting to the main window.
void ApplyLook(QApplication& application);

}  // namespace ssq
