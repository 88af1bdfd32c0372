#include "app/Folders.h"

#include <unistd.h>

#include <system_error>

#include "base/files.h"

namespace ssq {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDatabase = "ssq.mdb";
// The database, and the draws as text for those who bring in new ones by hand.
constexpr const char* kDelivered[] = {kDatabase, "draws.csv"};

bool Exists(const fs::path& file) {
    std::error_code unreadable;
    return fs::exists(file, unreadable);
}

bool CanWrite(const fs::path& path) {
    return ::access(path.c_str(), W_OK) == 0;
}

// What is handed out stands in delivered/, or beside the program where that is only readable.
fs::path DeliveredFile(const fs::path& program, const char* name) {
    const fs::path file = program / "delivered" / name;
    return Exists(file) ? file : program / "data" / name;
}

bool Lay(const fs::path& from, const fs::path& to, std::string& reason) {
    std::error_code unreadable;
    const auto size = fs::file_size(from, unreadable);
    if (unreadable) {
        reason = "无法打开文件。";
        return false;
    }
    const auto bytes = ReadFile(from, size, reason);
    return bytes && ReplaceFile(to, *bytes, reason);
}

}  // namespace

Folders ChooseFolders(const fs::path& program, const fs::path& home) {
    const fs::path data = program / "data";
    // Both are written: the store keeps its journal beside the database.
    if (Exists(data / kDatabase) && CanWrite(data / kDatabase) && CanWrite(data)) {
        return {program, program};
    }
    if (home.empty() || !Exists(DeliveredFile(program, kDatabase))) return {program, program};
    std::error_code failed;
    fs::create_directories(home / "data", failed);
    return {program, home};
}

bool LayDelivered(const Folders& folders, std::string& errorText) {
    if (folders.user == folders.program) return true;
    for (const char* name : kDelivered) {
        const fs::path from = DeliveredFile(folders.program, name);
        const fs::path to = folders.user / "data" / name;
        if (Exists(to) || !Exists(from)) continue;
        std::string reason;
        if (!Lay(from, to, reason)) {
            errorText = "无法把数据放到“" + to.string() + "”：" + reason;
            return false;
        }
    }
    return true;
}

}  // namespace ssq
