#include "support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace ssq {

TempFolder::TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "ssq-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TempFolder::Write(const std::filesystem::path& name,
                                        const std::string& bytes) const {
    std::filesystem::path file = path_ / name;
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

}  // namespace ssq
