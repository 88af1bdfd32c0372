// How the program looks and speaks: style, palette, font, icon, and the toolkit's own texts.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

class QApplication;

namespace ssq {

// Whether the desktop's palette is a dark one.
bool IsDark(const QPalette& palette);

// The colour of texts that tell what is wrong in an input.
QColor FaultInk(const QPalette& palette);

// The program's palette, light or dark; every group and role is set, so that nothing of the
// desktop's shows through.
QPalette ProgramPalette(bool dark);

// The icon of the windows and of the task bar.
QIcon ProgramIcon();

// Gives the application the one style of all panels, after the desktop's choice of light or dark,
// and Chinese texts for the toolkit's own boxes and menus.
void SetLook(QApplication& application);

}  // namespace ssq
