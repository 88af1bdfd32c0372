// The export of a grid to a worksheet file.
#pragma once

#include "ui/qt/PanelContext.h"

namespace ssq {

class GridView;

// Asks for a file name, to which ".xls" is always added, and writes the grid on show there; a
// blank name stops without a word. "保存成功！" or the reason of the failure is shown.
void SaveGridAsExcel(const PanelContext& context, const GridView& view);

}  // namespace ssq
