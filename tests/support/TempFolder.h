// A folder that goes with its test.
#pragma once

#include <filesystem>
#include <string>

namespace ssq {

class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    // The path of a file of the folder, written with the bytes given.
    std::filesystem::path Write(const std::filesystem::path& name, const std::string& bytes) const;

  private:
    std::filesystem::path path_;
};

}  // namespace ssq
