// The program's manual: pages of HTML in the folder `manual` beside the program, one to a panel.
#pragma once

#include <QString>

namespace ssq {

struct PanelContext;

// Opens the page, named like its panel, or the first page where there is none. Says so where the
// manual is missing.
void OpenManual(const PanelContext& context, const QString& page);

// Opens the help file ssqhelp.chm beside the program where it stands, else the manual's first
// page; where both are missing the desktop tells of the help file.
void OpenHelp(const PanelContext& context);

}  // namespace ssq
