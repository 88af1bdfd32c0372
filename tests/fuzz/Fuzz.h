// What the fuzz targets share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ssq {

// The input as text.
inline std::string_view FuzzText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Ends the program as a finding when a promise is broken.
inline void Promise(bool kept) {
    if (!kept) __builtin_trap();
}

}  // namespace ssq

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
