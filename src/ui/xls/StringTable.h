// The shared strings of a workbook: each text is stored once, cells refer to it by its number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace ssq::xls {

class RecordWriter;

// Longest text of a cell, in UTF-16 units.
inline constexpr std::size_t kMaxCellText = 32767;

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

}  // namespace ssq::xls
