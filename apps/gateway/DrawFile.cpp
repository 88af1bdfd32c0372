#include "gateway/DrawFile.h"

#include <algorithm>

#include "base/files.h"
#include "base/numbers.h"
#include "draws/IssueRules.h"
#include "gateway/merge.h"

namespace ssq {

namespace {

constexpr std::size_t kLargestFile = std::size_t{64} << 20;  // bytes; 50 years have some 1,000,000

}  // namespace

Refreshed DrawFile::Refresh(std::string& errorText) {
    std::error_code unreadable;
    const auto time = std::filesystem::last_write_time(path_, unreadable);
    const auto size = unreadable ? 0 : std::filesystem::file_size(path_, unreadable);
    if (!unreadable && time == time_ && size == size_) return Refreshed::kUnchanged;
    const auto bytes = ReadFile(path_, kLargestFile, errorText);
    if (!bytes) return Refreshed::kFailed;
    time_ = time;
    size_ = size;
    DrawsCsv csv = ReadDrawsCsv(*bytes, LatestDrawDate());
    if (csv.draws.empty() && !csv.faults.empty()) {
        errorText =
            "第 " + std::to_string(csv.faults.front().line) + " 行" + csv.faults.front().reason;
        return Refreshed::kFailed;
    }
    csv_ = std::move(csv);
    return Refreshed::kRead;
}

bool DrawFile::Replace(std::vector<PublishedDraw> draws, std::string& errorText) {
    csv_.draws = std::move(draws);
    if (!csv_.faults.empty()) {
        errorText = "数据文件有不正确的行，改正之前不写入";
        return false;
    }
    return ReplaceFile(path_, WriteDrawsCsv(csv_.draws), errorText) &&
           Refresh(errorText) != Refreshed::kFailed;
}

std::span<const PublishedDraw> DrawFile::listed() const {
    const std::span<const PublishedDraw> draws = csv_.draws;
    std::size_t first = draws.empty() ? 0 : draws.size() - 1;
    while (first > 0 && Follows(draws[first], draws[first - 1])) --first;
    return draws.subspan(first);
}

const PublishedDraw* DrawFile::Find(const std::string& issue) const {
    if (!IsDrawIssue(issue)) return nullptr;
    const auto number = static_cast<std::int32_t>(WholePart(issue));
    const auto found = std::ranges::lower_bound(
        csv_.draws, number, {}, [](const PublishedDraw& draw) { return draw.draw.issue; });
    return found != csv_.draws.end() && found->draw.issue == number ? &*found : nullptr;
}

std::string DrawFile::Remarks() const {
    std::string remarks;
    if (!csv_.faults.empty()) {
        remarks = "数据文件有 " + std::to_string(csv_.faults.size()) + " 行没有采用，第 " +
                  std::to_string(csv_.faults.front().line) + " 行" + csv_.faults.front().reason;
    }
    const auto list = listed();
    if (list.size() < csv_.draws.size()) {
        remarks += (remarks.empty() ? "数据文件在 " : "；在 ") +
                   std::to_string(list.front().draw.issue) + " 期之前缺期";
    }
    return remarks;
}

}  // namespace ssq
