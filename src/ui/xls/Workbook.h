// A workbook of one worksheet: its shared strings, its records around the sheet's, its file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ssq::xls {

class RecordWriter;
class StyleTable;

// Longest text of a cell, in UTF-16 units.
inline constexpr std::size_t kMaxCellText = 32767;

// Each text is stored once, cells refer to it by its number.
class StringTable {
  public:
    // The number of the text, which is added when it is new. Texts past kMaxCellText are refused
    // by the caller.
    std::uint32_t Index(const std::string& utf8);

    // One SST record and as many CONTINUE records as it takes.
    void Write(RecordWriter& writer) const;

  private:
    std::unordered_map<std::string, std::uint32_t> index_;
    std::vector<const std::string*> texts_;  // the keys of index_ in the order of their numbers
    std::uint32_t uses_ = 0;
};

// The record that opens the workbook or a sheet.
enum class Substream { kWorkbook = 0x0005, kSheet = 0x0010 };
void BeginSubstream(RecordWriter& writer, Substream kind);

// The bytes of the file; `sheet` is the sheet's part of the record stream, from its BOF to its
// EOF. Empty when memory does not suffice.
std::optional<std::string> WorkbookFile(const StyleTable& styles, const StringTable& strings,
                                        std::string_view sheet);

}  // namespace ssq::xls
