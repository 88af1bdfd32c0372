// The keys that every window of the program understands.
#pragma once

class QKeyEvent;
class QPushButton;
class QWidget;

namespace ssq {

struct PanelContext;

// F1 opens the manual at the window's page, F5 presses `mainButton`, and so does Enter where the
// focus has no use for it; on another button Enter presses that one. `mainButton` may be null.
// False for a key that means nothing here.
bool TakeKey(const PanelContext& context, const QWidget& window, QPushButton* mainButton,
             const QKeyEvent& event);

}  // namespace ssq
