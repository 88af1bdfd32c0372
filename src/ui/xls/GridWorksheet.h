// A grid as a worksheet file.
#pragma once

#include <filesystem>
#include <string>

namespace ssq {

class ResultGrid;

// Writes the whole grid, fixed cells included, as a binary worksheet (BIFF8, one sheet), which
// looks as the grid does: colours, fonts, alignment, sizes, hidden columns, merged fixed cells;
// the fixed rows and columns stay in view. A text that is a plain number becomes a number, one
// whose form matters ("03", "01,02") stays a text. On failure: false and the reason in Chinese;
// no half file is left, and what stood there before stays.
bool WriteWorksheet(const ResultGrid& grid, const std::filesystem::path& file,
                    std::string& errorText);

}  // namespace ssq
