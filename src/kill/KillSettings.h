// The settings of kill learning: the row of vqs with itype 1, and what its dialog proposes.
#pragma once

#include <optional>
#include <string>

namespace ssq {

struct Session;

struct KillSettings {
    int xxqs = 0;        // how many of the newest draws to learn on
    int dmgs = 0;        // formulas in a set minus 1: 0 to 3 for 6, 12, 18 or 24 kills
    int rc = 0;          // formulas of the set that may each have one hit on a draw that passes
    double setRate = 0;  // lowest acceptable rate, percent

    bool operator==(const KillSettings&) const = default;
};

// Empty when there is no row, or after showing the store's error text.
std::optional<KillSettings> ReadKillSettings(Session& session);

// ReadKillSettings that tells the user "读取参数出错！" when it is empty.
std::optional<KillSettings> ReadKillSettingsOrTell(Session& session);

// The settings as the dialog's controls hold them.
struct KillSettingsInput {
    std::string xxqs;
    std::string rate;
    int dmgs = 0;  // position in the list of sizes
    bool tolerant = false;
    int rc = 0;  // position in the list of tolerances, which counts when `tolerant`
};

// What is wrong with the trimmed texts of the number of draws (its whole part is at least 1) and of
// the rate (10 to 100), or with the position of the size, as the user is told; empty when nothing
// is.
std::string KillSettingsFault(const std::string& xxqs, const std::string& rate, int dmgs);

// Checks them and stores the whole parts with the positions. False when a check or the store
// refused them; the user has been told.
bool SaveKillSettings(Session& session, const KillSettingsInput& input);

// What the dialog shows for a kill size.
struct KillProposal {
    int rcItems = 2;     // the tolerance list reads "0", "1", ... and has this many items
    int rcSelected = 0;  // position in it
    bool tolerant = false;
    std::string rateText;
};

// For the choice of size `dmgs` (0 to 3): the values read on opening come back with their own
// size, any other size gets its defaults.
KillProposal ProposeKillSettings(int dmgs, const KillSettings& opened);

// The defaults of a size; every size learns on kDefaultKillDraws draws then.
KillProposal DefaultKillSettings(int dmgs);

inline constexpr int kDefaultKillDraws = 5;

}  // namespace ssq
