// The ways out of a grid: the copy commands of its popups and the worksheet file.
#pragma once

#include <string>

#include "ui/qt/PanelContext.h"

namespace ssq {

class GridView;

void PutOnClipboard(const std::string& text);

// The selection as comma text (SelectionText) and as conditions (SelectionConditions), these also
// to the plan.
void CopySelection(const GridView& view);
void CopySelectionAsCondition(const GridView& view);
void AddSelectionToPlan(const PanelContext& context, const GridView& view);

// Asks for a file name, to which ".xls" is always added, and writes the grid on show there; a
// blank name stops without a word, and so does Cancel when asked about a file that exists under
// the full name. "保存成功！", or "保存失败！" with the reason, is shown with the file's path.
void SaveGridAsExcel(const PanelContext& context, const GridView& view);

}  // namespace ssq
