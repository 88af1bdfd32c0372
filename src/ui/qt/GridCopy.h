// The copy commands of the grids' popups, on the system's clipboard.
#pragma once

#include <string>

namespace ssq {

class GridView;

void PutOnClipboard(const std::string& text);

// The selection as comma text (SelectionText) and as conditions (SelectionConditions).
void CopySelection(const GridView& view);
void CopySelectionAsCondition(const GridView& view);

}  // namespace ssq
