#include "ui/TextFile.h"

#include "base/files.h"
#include "ui/Host.h"

namespace ssq {

bool WriteTextFile(Host& host, const std::filesystem::path& file, const std::string& text) {
    std::string reason;
    if (ReplaceFile(file, text, reason)) return true;
    host.ShowMessage("写入文件时出错！" + reason);
    return false;
}

}  // namespace ssq
