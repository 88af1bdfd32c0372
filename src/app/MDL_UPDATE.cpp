#include "app/MDL_UPDATE.h"

namespace ssq {

std::optional<UpdaterCall> UpdaterCallFor(const std::filesystem::path& programFolder, bool manual) {
    const std::filesystem::path file = programFolder / "Update.exe";
    std::error_code unreadable;
    if (!std::filesystem::exists(file, unreadable)) return std::nullopt;
    return UpdaterCall{file, manual ? "/SilentCheck2 /NoIcon " : "/SilentCheck  /NoIcon"};
}

}  // namespace ssq
