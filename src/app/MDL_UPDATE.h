// The updater beside the program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ssq {

struct UpdaterCall {
    std::filesystem::path file;
    std::string arguments;  // goes out exactly so, blanks included
};

// How to start the updater: on the user's wish (`manual`) or at each start of the program. Nothing
// when no file Update.exe stands in the folder.
std::optional<UpdaterCall> UpdaterCallFor(const std::filesystem::path& programFolder, bool manual);

}  // namespace ssq
