// The settings of banker learning: the row of vqs with itype 0.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ssq {

struct Session;

inline constexpr int kMostLearnPeriods = 100;
inline constexpr int kMostBankers = 5;

struct BankerSettings {
    int xxqs = 0;  // draws to learn on
    int dmgs = 0;  // bankers in a group

    bool operator==(const BankerSettings&) const = default;
};

// One setting; 0 when there is no row, nothing after showing the store's error text.
std::optional<int> GetLearnPeriods(Session& session);
std::optional<int> GetBankerCount(Session& session);

// Both; nothing after showing the text of the first failure.
std::optional<BankerSettings> ReadBankerSettings(Session& session);

// What the status bar says of them, with gaps for settings that could not be read.
std::string LearningModeText(const std::optional<BankerSettings>& settings);

// What is wrong with the trimmed text of the number of draws (5 to 100) or the number of bankers,
// as the user is told; empty when nothing is.
std::string BankerSettingsFault(const std::string& periods, int dmgs);

// Checks the text of the number of draws and stores its whole part with the number of bankers.
// False when a check or the store refused them; the user has been told.
bool SaveBankerSettings(Session& session, std::string_view periodsText, int dmgs);

}  // namespace ssq
