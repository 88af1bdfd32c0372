// What a result names for a draw, as the panels hand it on to the plan of bets.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/RedSet.h"
#include "draws/Draw.h"

namespace ssq {

// How many of some numbers come out, both ends included.
struct CountRange {
    int low = 0;
    int high = 0;
};

inline constexpr CountRange kAtMostOne{0, 1};
inline constexpr CountRange kAtLeastOne{1, kRedsInDraw};

// What one result names for the draw behind some others (oldest first); empty with too few of them.
struct NumberSource {
    std::string name;
    std::optional<CountRange> range = {};  // of how many come; without one the likely range
    bool isBlue = false;
    bool isAgainst = false;  // the numbers are thought not to come
    bool isLearned = false;  // chosen by past draws, some of which it will be rated on
    std::function<RedSet(std::span<const Draw> earlier)> numbers = {};
};

// The sources of the panels that show a result, by the panels' names.
class NumbersAtHand {
  public:
    void Show(const std::string& panel, std::vector<NumberSource> sources) {
        byPanel_[panel] = std::move(sources);
    }
    void Forget(const std::string& panel) { byPanel_.erase(panel); }

    // Null while the panel shows none.
    const std::vector<NumberSource>* Of(const std::string& panel) const {
        const auto found = byPanel_.find(panel);
        return found == byPanel_.end() ? nullptr : &found->second;
    }

  private:
    std::map<std::string, std::vector<NumberSource>> byPanel_;
};

}  // namespace ssq
