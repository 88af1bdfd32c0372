// Bringing the draws of a source into those of the file.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "draws/DrawsCsv.h"

namespace ssq {

// Whether no draw lies between the two.
bool Follows(const PublishedDraw& draw, const PublishedDraw& before);

struct MergeCount {
    int added = 0;
    int completed = 0;  // draws of the file of which more is known now
    int replaced = 0;
    int different = 0;  // draws of the file of which the source tells otherwise; they stay
    std::int32_t behindHole = 0;  // the first draw of the source that was left out; 0 for none
};

// Adds what `draws`, by issue, do not hold, and fills in what they do not know. What they hold is
// changed only with `replace`; a draw is never dropped. A draw that is later than all of them is
// added only where it follows the newest, or the list of draws would begin anew behind the hole.
MergeCount MergeDraws(std::vector<PublishedDraw>& draws, std::span<const PublishedDraw> fresh,
                      bool replace);

// "新增 1 期，补全 2 期"; empty when nothing happened.
std::string MergeText(const MergeCount& count);

}  // namespace ssq
