// The compound file that holds a worksheet's record stream.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ssq::xls {

// The bytes of a compound file with one stream, "Workbook"; empty when memory does not suffice.
std::optional<std::string> CompoundFile(std::string_view workbook);

}  // namespace ssq::xls
