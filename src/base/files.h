// Reading and writing of files: whole or not at all.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace ssq {

// Creates or replaces the file. On failure: false, the reason in Chinese in `errorText`, and
// what stood there before stands unchanged.
bool ReplaceFile(const std::filesystem::path& file, std::string_view bytes, std::string& errorText);

// The file's bytes. Nothing, with the reason in Chinese, when it cannot be read or has more than
// `largest` bytes.
std::optional<std::string> ReadFile(const std::filesystem::path& file, std::size_t largest,
                                    std::string& errorText);

}  // namespace ssq
