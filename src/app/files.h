// Writing of files: whole or not at all.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ssq {

class Host;

// Creates or replaces the file. On failure: false, the reason in Chinese in `errorText`, and
// what stood there before stands unchanged.
bool ReplaceFile(const std::filesystem::path& file, std::string_view bytes, std::string& errorText);

// Creates or overwrites a text file with the text as it is, in UTF-8. False after a box with
// "写入文件时出错！" and the reason.
bool WriteTextFile(Host& host, const std::filesystem::path& file, const std::string& text);

}  // namespace ssq
