// Writing of files: whole or not at all.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ssq {

// Creates or replaces the file. On failure: false, the reason in Chinese in `errorText`, and
// what stood there before stands unchanged.
bool ReplaceFile(const std::filesystem::path& file, std::string_view bytes, std::string& errorText);

}  // namespace ssq
