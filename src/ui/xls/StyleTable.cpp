#include "ui/xls/StyleTable.h"

#include <algorithm>

#include "ui/xls/RecordWriter.h"

namespace ssq::xls {

namespace {

constexpr std::size_t kMaxColours = 56;
constexpr std::size_t kMaxFonts = 512;
constexpr std::size_t kMaxXfs = 4000;
constexpr std::uint16_t kFirstColour = 8;  // 0 to 7 are built in
constexpr std::uint16_t kAutomaticFontColour = 0x7FFF;
constexpr std::uint16_t kAutomaticPatternColour = 65;

// The formats of the built-in styles come first, then those of cells.
constexpr std::uint16_t kStyleXfs = kPlainFormat;

// Built-in number formats.
constexpr std::uint16_t kGeneralNumber = 0;
constexpr std::uint16_t kWholeNumber = 1;

int Distance(Rgb a, Rgb b) {
    const auto square = [](int difference) { return difference * difference; };
    return square(a.red - b.red) + square(a.green - b.green) + square(a.blue - b.blue);
}

std::uint8_t AlignmentBits(Align alignment) {
    constexpr std::uint8_t kMiddle = 1 << 4;
    switch (alignment) {
        case Align::kLeft:
            return kMiddle | 1;
        case Align::kCentre:
            return kMiddle | 2;
        case Align::kGeneral:
            break;
    }
    return kMiddle;
}

}  // namespace

StyleTable::StyleTable() {
    Index({});
}

std::uint16_t StyleTable::Index(const CellFormat& format) {
    const auto known = formatIndex_.find(format);
    if (known != formatIndex_.end()) return known->second;
    Xf xf;
    xf.font = FontIndex(format.style);
    xf.number = format.wholeNumber ? kWholeNumber : kGeneralNumber;
    xf.alignment = AlignmentBits(format.alignment);
    if (format.style.back) xf.fill = ColourIndex(*format.style.back);
    if (format.lines) xf.lines = ColourIndex(*format.lines);
    const std::uint16_t index = XfIndex(xf);
    formatIndex_.emplace(format, index);
    return index;
}

std::uint16_t StyleTable::ColourIndex(Rgb colour) {
    const auto known = colourIndex_.find(colour);
    if (known != colourIndex_.end()) return known->second;
    auto place = palette_.end();
    if (palette_.size() < kMaxColours) {
        place = palette_.insert(palette_.end(), colour);
    } else {
        place = std::min_element(palette_.begin(), palette_.end(), [colour](Rgb a, Rgb b) {
            return Distance(a, colour) < Distance(b, colour);
        });
    }
    const auto index = static_cast<std::uint16_t>(kFirstColour + (place - palette_.begin()));
    colourIndex_.emplace(colour, index);
    return index;
}

std::uint16_t StyleTable::FontIndex(const CellStyle& style) {
    constexpr int kMaxPoints = 409;
    const Font font{style.fontName.empty() ? kSheetFont : style.fontName,
                    style.fontSize > 0 ? std::min(style.fontSize, kMaxPoints) : kSheetFontPoints,
                    style.bold, style.fore ? ColourIndex(*style.fore) : kAutomaticFontColour};
    const auto known = fontIndex_.find(font);
    if (known != fontIndex_.end()) return known->second;
    if (fonts_.size() >= kMaxFonts) return 0;
    // The format leaves number 4 out.
    const auto index = static_cast<std::uint16_t>(fonts_.size() + (fonts_.size() < 4 ? 0 : 1));
    fonts_.push_back(font);
    fontIndex_.emplace(font, index);
    return index;
}

std::uint16_t StyleTable::XfIndex(const Xf& xf) {
    const auto known = xfIndex_.find(xf);
    if (known != xfIndex_.end()) return known->second;
    if (xfs_.size() + kStyleXfs >= kMaxXfs) return kPlainFormat;
    const auto index = static_cast<std::uint16_t>(kStyleXfs + xfs_.size());
    xfs_.push_back(xf);
    xfIndex_.emplace(xf, index);
    return index;
}

void StyleTable::Write(RecordWriter& writer) const {
    for (const Font& font : fonts_) WriteFont(writer, font);
    for (int i = 0; i < kStyleXfs; ++i) WriteXf(writer, xfs_.front(), true);
    for (const Xf& xf : xfs_) WriteXf(writer, xf, false);

    // The built-in style "normal" on format 0.
    writer.Begin(Record::kStyle).U16(0x8000).U8(0).U8(0xFF);

    if (palette_.empty()) return;
    writer.Begin(Record::kPalette).U16(kMaxColours);
    for (std::size_t i = 0; i < kMaxColours; ++i) {
        const Rgb colour = i < palette_.size() ? palette_[i] : Rgb{};
        writer.U8(colour.red).U8(colour.green).U8(colour.blue).U8(0);
    }
}

void StyleTable::WriteFont(RecordWriter& writer, const Font& font) {
    constexpr std::uint32_t kTwipsPerPoint = 20;
    constexpr std::uint32_t kNormalWeight = 400;
    constexpr std::uint32_t kBoldWeight = 700;
    constexpr std::uint32_t kCharsetGb2312 = 134;
    constexpr std::size_t kMaxName = 31;
    writer.Begin(Record::kFont)
        .U16(static_cast<std::uint32_t>(font.points) * kTwipsPerPoint)
        .U16(font.bold ? 1 : 0)
        .U16(font.colour)
        .U16(font.bold ? kBoldWeight : kNormalWeight)
        .U16(0)  // neither raised nor lowered
        .U8(0)   // no underline
        .U8(0)   // any family
        .U8(kCharsetGb2312)
        .U8(0)
        .ShortText(ToUtf16(font.name).substr(0, kMaxName));
}

void StyleTable::WriteXf(RecordWriter& writer, const Xf& xf, bool isStyle) {
    constexpr std::uint32_t kLockedStyle = 0xFFF5;
    constexpr std::uint32_t kLockedCell = 0x0001;
    constexpr std::uint32_t kAllAttributes = 0xFC;
    constexpr std::uint32_t kThinOnFourSides = 0x1111;
    constexpr std::uint32_t kSolid = 1U << 26;
    const std::uint32_t colour = xf.lines.value_or(0);
    writer.Begin(Record::kXf)
        .U16(xf.font)
        .U16(xf.number)
        .U16(isStyle ? kLockedStyle : kLockedCell)
        .U8(xf.alignment)
        .U8(0)  // not turned
        .U8(0)  // not indented
        .U8(isStyle ? 0 : kAllAttributes)
        .U32(xf.lines ? kThinOnFourSides | colour << 16 | colour << 23 : 0)
        .U32((colour | colour << 7) | (xf.fill ? kSolid : 0))
        .U16(xf.fill ? *xf.fill | kAutomaticPatternColour << 7 : 0);
}

}  // namespace ssq::xls
