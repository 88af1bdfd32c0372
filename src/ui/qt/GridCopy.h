// The copy commands of the grids' popups, on the system's clipboard.
#pragma once

#include <string>

namespace ssq {

class GridView;

void PutOnClipboard(const std::string& text);

// The selection as comma text (SelectionText), as conditions (SelectionConditions) and the kill
// groups of the selected row (KillConditions).
void CopySelection(const GridView& view);
void CopySelectionAsCondition(const GridView& view);
void CopyKillConditions(const GridView& view, int groups);

}  // namespace ssq
