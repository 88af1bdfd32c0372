// Texts as a worksheet holds them.
#pragma once

#include <string>
#include <string_view>

namespace ssq::xls {

// Bytes that are no UTF-8 become U+FFFD.
std::u16string ToUtf16(std::string_view utf8);

// Whether every unit fits in one byte, which halves the text in the file.
bool FitsShortForm(std::u16string_view text);

// The first half of a surrogate pair.
bool IsHighSurrogate(char16_t unit);

}  // namespace ssq::xls
