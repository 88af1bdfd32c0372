// Texts in the encodings of Chinese Windows and of the web, from and to the UTF-8 used inside.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ssq {

// UTF-8 of bytes in a charset that iconv knows. Bytes that are no character become U+FFFD, one
// each, and are counted in `faults`. GBK is read as GB18030, which holds it.
std::string DecodeText(const char* charset, std::string_view bytes, std::size_t& faults);
inline std::string DecodeUtf8(std::string_view bytes, std::size_t& faults) {
    return DecodeText("UTF-8", bytes, faults);
}
inline std::string DecodeGbk(std::string_view bytes, std::size_t& faults) {
    return DecodeText("GB18030", bytes, faults);
}

// The GBK bytes of a UTF-8 text; nothing when it holds a character that GBK has not.
std::optional<std::string> EncodeGbk(std::string_view text);

// The text of a file that may be in UTF-8, with or without a byte order mark, or in GBK. Nothing
// when it is neither, or holds a zero byte: then it is no text.
std::optional<std::string> DecodeTextFile(std::string_view bytes);

}  // namespace ssq
