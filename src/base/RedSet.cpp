#include "base/RedSet.h"

#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

RedSet RedSet::FromList(std::string_view list) {
    RedSet set;
    for (const int number : IntList(list)) set.Add(number);
    return set;
}

std::string RedSet::ToList() const {
    std::string list;
    for (int number = 1; number <= kLargest; ++number) {
        if (!Has(number)) continue;
        if (!list.empty()) list += ',';
        list += TwoDigits(number);
    }
    return list;
}

}  // namespace ssq
