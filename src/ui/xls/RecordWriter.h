// The record stream of a BIFF8 worksheet: type, length of the body, body; all little-endian; and
// its texts, which are UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ssq::xls {

// Bytes that are no UTF-8 become U+FFFD.
std::u16string ToUtf16(std::string_view utf8);

// Whether every unit fits in one byte, which halves the text in the file.
bool FitsShortForm(std::u16string_view text);

// The first half of a surrogate pair.
bool IsHighSurrogate(char16_t unit);

// Record numbers of the published file format ([MS-XLS], 2.3).
enum class Record : std::uint16_t {
    kEof = 0x000A,
    kSelection = 0x001D,
    kDateMode = 0x0022,
    kFont = 0x0031,
    kContinue = 0x003C,
    kWindow1 = 0x003D,
    kPane = 0x0041,
    kCodePage = 0x0042,
    kColInfo = 0x007D,
    kBoundSheet = 0x0085,
    kPalette = 0x0092,
    kXf = 0x00E0,
    kMergedCells = 0x00E5,
    kSst = 0x00FC,
    kLabelSst = 0x00FD,
    kDimensions = 0x0200,
    kBlank = 0x0201,
    kNumber = 0x0203,
    kRow = 0x0208,
    kWindow2 = 0x023E,
    kStyle = 0x0293,
    kBof = 0x0809,
};

// Longest body of a record; what is longer goes on in a CONTINUE record.
inline constexpr std::size_t kMaxBody = 8224;

// Appends records: `writer.Begin(Record::kBlank).U16(row).U16(col).U16(format)`. The next Begin,
// or the taking of the bytes, ends a record.
class RecordWriter {
  public:
    RecordWriter& Begin(Record type);
    RecordWriter& U8(std::uint32_t value);
    RecordWriter& U16(std::uint32_t value);
    RecordWriter& U32(std::uint32_t value);
    RecordWriter& Double(double value);

    // UTF-16 units without any header; in the short form the low bytes only.
    RecordWriter& Units(std::u16string_view units, bool shortForm);

    // A whole text with an 8-bit length and the flag byte, at most 255 units.
    RecordWriter& ShortText(std::u16string_view text);

    // What the open record can still take.
    std::size_t room() const { return kMaxBody - (bytes_.size() - bodyStart_); }

    // Position in the stream.
    std::size_t size() const { return bytes_.size(); }
    void PatchU32(std::size_t position, std::uint32_t value);

    std::string TakeBytes();

  private:
    void EndRecord();

    std::string bytes_;
    std::size_t bodyStart_ = 0;  // 0 while no record is open
};

}  // namespace ssq::xls
