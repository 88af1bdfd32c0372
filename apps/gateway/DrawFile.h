// The file that the gateway serves.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "draws/DrawsCsv.h"

namespace ssq {

enum class Refreshed { kUnchanged, kRead, kFailed };

class DrawFile {
  public:
    explicit DrawFile(std::filesystem::path path) : path_(std::move(path)) {}

    // Reads the file where it has changed since the last time. Fails, with the reason in Chinese,
    // when it cannot be read or has no good line; what was read before then stays. A file without
    // a good line fails once for each change.
    Refreshed Refresh(std::string& errorText);

    // Serves these draws and, where every line of the file is good, writes them. False with the
    // reason when that fails.
    bool Replace(std::vector<PublishedDraw> draws, std::string& errorText);

    const DrawsCsv& csv() const { return csv_; }

    // The newest draws without a hole between them, oldest first: what the list of draws holds, so
    // that no database gets a hole from it.
    std::span<const PublishedDraw> listed() const;

    // Null for a draw that the file does not hold.
    const PublishedDraw* Find(const std::string& issue) const;

    // What the user is to know of the file: lines that are not served, a hole. Empty when all is
    // well.
    std::string Remarks() const;

  private:
    std::filesystem::path path_;
    DrawsCsv csv_;
    std::filesystem::file_time_type time_;
    std::uintmax_t size_ = 0;
};

}  // namespace ssq
