// The draws of a database as a file.
#pragma once

#include <filesystem>
#include <string>

namespace ssq {

// Writes the draws, with their money as far as it is known, to a file of draws, whole or not at
// all; draws that no such file can hold are left out. Tells in Chinese what became of it; false
// when there is no file.
bool ExportDatabase(const std::filesystem::path& database, const std::filesystem::path& file,
                    std::string& told);

}  // namespace ssq
