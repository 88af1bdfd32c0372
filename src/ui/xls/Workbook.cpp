#include "ui/xls/Workbook.h"

#include <cstdint>

#include "ui/xls/RecordWriter.h"
#include "ui/xls/StringTable.h"
#include "ui/xls/StyleTable.h"

namespace ssq::xls {

namespace {

void WriteWindow(RecordWriter& writer) {
    constexpr std::uint32_t kWidthTwips = 15000;
    constexpr std::uint32_t kHeightTwips = 9000;
    constexpr std::uint32_t kScrollBarsAndTabs = 0x0038;
    constexpr std::uint32_t kTabShare = 600;  // of 1,000 parts of the scroll bar
    writer.Begin(Record::kWindow1).U16(0).U16(0).U16(kWidthTwips).U16(kHeightTwips);
    writer.U16(kScrollBarsAndTabs).U16(0).U16(0).U16(1).U16(kTabShare);
}

}  // namespace

void BeginSubstream(RecordWriter& writer, Substream kind) {
    constexpr std::uint32_t kBiff8 = 0x0600;
    constexpr std::uint32_t kBuild = 0x0DBB;
    constexpr std::uint32_t kBuildYear = 1996;
    constexpr std::uint32_t kHistory = 0x0041;
    constexpr std::uint32_t kLowestReader = 0x0006;
    writer.Begin(Record::kBof).U16(kBiff8).U16(static_cast<std::uint32_t>(kind));
    writer.U16(kBuild).U16(kBuildYear).U32(kHistory).U32(kLowestReader);
}

std::string AssembleWorkbook(const StyleTable& styles, const StringTable& strings,
                             std::string_view sheet) {
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

}  // namespace ssq::xls
