// Text files that the user keeps.
#pragma once

#include <filesystem>
#include <string>

namespace ssq {

class Host;

// Creates or overwrites a text file with the bytes of the text as they are, in UTF-8 unless the
// caller has encoded them. False after a box with "写入文件时出错！" and the reason.
bool WriteTextFile(Host& host, const std::filesystem::path& file, const std::string& text);

}  // namespace ssq
