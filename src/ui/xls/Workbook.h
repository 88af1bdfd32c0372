// A workbook of one worksheet, put together from its parts.
#pragma once

#include <string>
#include <string_view>

namespace ssq::xls {

class RecordWriter;
class StringTable;
class StyleTable;

// The record that opens the workbook or a sheet.
enum class Substream { kWorkbook = 0x0005, kSheet = 0x0010 };
void BeginSubstream(RecordWriter& writer, Substream kind);

// The whole record stream; `sheet` is the sheet's part of it, from its BOF to its EOF.
std::string AssembleWorkbook(const StyleTable& styles, const StringTable& strings,
                             std::string_view sheet);

}  // namespace ssq::xls
