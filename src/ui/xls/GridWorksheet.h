// A grid as a worksheet file.
#pragma once

#include <filesystem>
#include <string>

namespace ssq {

class ResultGrid;

// Writes the whole grid, fixed cells included, as a binary worksheet (BIFF8, one sheet), which
// looks as the grid does: colours, fonts, alignment, sizes, hidden columns, merged fixed cells;
// the fixed rows and columns stay in view. A column is of one type, so that it can be sorted and
// looked up: of numbers when all its body holds plain ones (and dashes for none), of texts when a
// text's form matters ("03", "01,02") and where it names something. Headings are texts. On failure:
// false and the reason in Chinese; no half file is left, and what stood there before stays.
bool WriteWorksheet(const ResultGrid& grid, const std::filesystem::path& file,
                    std::string& errorText);

}  // namespace ssq
