#include "ui/xls/Workbook.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <algorithm>
#include <memory>

#include "ui/xls/RecordWriter.h"
#include "ui/xls/StyleTable.h"

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

void WriteWindow(RecordWriter& writer) {
    constexpr std::uint32_t kWidthTwips = 15000;
    constexpr std::uint32_t kHeightTwips = 9000;
    constexpr std::uint32_t kScrollBarsAndTabs = 0x0038;
    constexpr std::uint32_t kTabShare = 600;  // of 1,000 parts of the scroll bar
    writer.Begin(Record::kWindow1).U16(0).U16(0).U16(kWidthTwips).U16(kHeightTwips);
    writer.U16(kScrollBarsAndTabs).U16(0).U16(0).U16(1).U16(kTabShare);
}

std::string Records(const StyleTable& styles, const StringTable& strings, std::string_view sheet) {
    constexpr std::uint32_t kUtf16 = 1200;
    RecordWriter writer;
    BeginSubstream(writer, Substream::kWorkbook);
    writer.Begin(Record::kCodePage).U16(kUtf16);
    WriteWindow(writer);
    writer.Begin(Record::kDateMode).U16(0);
    styles.Write(writer);
    writer.Begin(Record::kBoundSheet);
    const std::size_t sheetPosition = writer.size();
    writer.U32(0).U8(0).U8(0).ShortText(u"Sheet1");  // a visible worksheet
    strings.Write(writer);
    writer.Begin(Record::kEof);
    writer.PatchU32(sheetPosition, static_cast<std::uint32_t>(writer.size()));
    return writer.TakeBytes().append(sheet);
}

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

template <typename Object>
using ObjectPtr = std::unique_ptr<Object, Unref>;

void InitialiseLibraryOnce() {
    static const bool initialised = [] {
        gsf_init();
        return true;
    }();
    static_cast<void>(initialised);
}

bool WriteStream(GsfOutput* sink, std::string_view bytes) {
    const ObjectPtr<GsfOutfile> container(gsf_outfile_msole_new(sink));
    if (!container) return false;
    const ObjectPtr<GsfOutput> stream(gsf_outfile_new_child(container.get(), "Workbook", FALSE));
    if (!stream) return false;
    const bool written = gsf_output_write(stream.get(), bytes.size(),
                                          reinterpret_cast<const guint8*>(bytes.data())) != FALSE;
    // Closing the container completes its directory and closes the sink with it.
    const bool streamClosed = gsf_output_close(stream.get()) != FALSE;
    const bool containerClosed = gsf_output_close(GSF_OUTPUT(container.get())) != FALSE;
    return written && streamClosed && containerClosed;
}

// A compound file with one stream.
std::optional<std::string> CompoundFile(std::string_view workbook) {
    InitialiseLibraryOnce();
    const ObjectPtr<GsfOutput> sink(gsf_output_memory_new());
    if (!sink || !WriteStream(sink.get(), workbook)) return std::nullopt;
    const auto* bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(sink.get()));
    return std::string(reinterpret_cast<const char*>(bytes),
                       static_cast<std::size_t>(gsf_output_size(sink.get())));
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

void BeginSubstream(RecordWriter& writer, Substream kind) {
    constexpr std::uint32_t kBiff8 = 0x0600;
    constexpr std::uint32_t kBuild = 0x0DBB;
    constexpr std::uint32_t kBuildYear = 1996;
    constexpr std::uint32_t kHistory = 0x0041;
    constexpr std::uint32_t kLowestReader = 0x0006;
    writer.Begin(Record::kBof).U16(kBiff8).U16(static_cast<std::uint32_t>(kind));
    writer.U16(kBuild).U16(kBuildYear).U32(kHistory).U32(kLowestReader);
}

std::optional<std::string> WorkbookFile(const StyleTable& styles, const StringTable& strings,
                                        std::string_view sheet) {
    return CompoundFile(Records(styles, strings, sheet));
}

}  // namespace ssq::xls
