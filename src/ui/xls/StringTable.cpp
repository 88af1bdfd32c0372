#include "ui/xls/StringTable.h"

#include <algorithm>
#include <string_view>

#include "ui/xls/RecordWriter.h"
#include "ui/xls/Utf16.h"

namespace ssq::xls {

namespace {

// How many units from the front fit in `room` bytes without cutting a surrogate pair.
std::size_t UnitsThatFit(std::u16string_view units, std::size_t room, bool shortForm) {
    const std::size_t count = std::min(units.size(), shortForm ? room : room / 2);
    const bool cutsPair = count > 0 && count < units.size() && IsHighSurrogate(units[count - 1]);
    return cutsPair ? count - 1 : count;
}

// The header of a text and its first character stay in one record, as readers expect; the rest
// may go on in the next, which repeats the flag byte first.
void WriteText(RecordWriter& writer, std::u16string_view units) {
    constexpr std::size_t kHeaderAndCharacter = 3 + 4;
    const bool shortForm = FitsShortForm(units);
    const std::uint32_t flag = shortForm ? 0 : 1;
    if (writer.room() < kHeaderAndCharacter) writer.Begin(Record::kContinue);
    writer.U16(static_cast<std::uint32_t>(units.size())).U8(flag);
    while (true) {
        const std::size_t fitting = UnitsThatFit(units, writer.room(), shortForm);
        writer.Units(units.substr(0, fitting), shortForm);
        units.remove_prefix(fitting);
        if (units.empty()) return;
        writer.Begin(Record::kContinue).U8(flag);
    }
}

}  // namespace

std::uint32_t StringTable::Index(const std::string& utf8) {
    ++uses_;
    const auto [entry, isNew] = index_.try_emplace(utf8, static_cast<std::uint32_t>(texts_.size()));
    if (isNew) texts_.push_back(&entry->first);
    return entry->second;
}

void StringTable::Write(RecordWriter& writer) const {
    writer.Begin(Record::kSst).U32(uses_).U32(static_cast<std::uint32_t>(texts_.size()));
    for (const std::string* text : texts_) WriteText(writer, ToUtf16(*text));
}

}  // namespace ssq::xls
