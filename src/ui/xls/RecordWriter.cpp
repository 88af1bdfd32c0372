#include "ui/xls/RecordWriter.h"

#include <glib.h>

#include <algorithm>
#include <bit>
#include <memory>
#include <utility>

namespace ssq::xls {

namespace {

constexpr unsigned kByteMask = 0xFF;
constexpr std::size_t kHeaderSize = 4;

struct GlibFree {
    void operator()(void* memory) const { g_free(memory); }
};

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
    const std::unique_ptr<char, GlibFree> valid(
        g_utf8_make_valid(utf8.data(), static_cast<gssize>(utf8.size())));
    glong length = 0;
    const std::unique_ptr<gunichar2, GlibFree> units(
        g_utf8_to_utf16(valid.get(), -1, nullptr, &length, nullptr));
    return {units.get(), units.get() + length};
}

bool FitsShortForm(std::u16string_view text) {
    constexpr char16_t kLargestByte = 0xFF;
    return std::all_of(text.begin(), text.end(),
                       [](char16_t unit) { return unit <= kLargestByte; });
}

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

RecordWriter& RecordWriter::Begin(Record type) {
    EndRecord();
    U16(static_cast<std::uint16_t>(type));
    U16(0);
    bodyStart_ = bytes_.size();
    return *this;
}

RecordWriter& RecordWriter::U8(std::uint32_t value) {
    bytes_ += static_cast<char>(value & kByteMask);
    return *this;
}

RecordWriter& RecordWriter::U16(std::uint32_t value) {
    return U8(value).U8(value >> 8);
}

RecordWriter& RecordWriter::U32(std::uint32_t value) {
    return U16(value).U16(value >> 16);
}

RecordWriter& RecordWriter::Double(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return U32(static_cast<std::uint32_t>(bits)).U32(static_cast<std::uint32_t>(bits >> 32));
}

RecordWriter& RecordWriter::Units(std::u16string_view units, bool shortForm) {
    for (const char16_t unit : units) {
        if (shortForm) {
            U8(unit);
        } else {
            U16(unit);
        }
    }
    return *this;
}

RecordWriter& RecordWriter::ShortText(std::u16string_view text) {
    const bool shortForm = FitsShortForm(text);
    return U8(static_cast<std::uint32_t>(text.size())).U8(shortForm ? 0 : 1).Units(text, shortForm);
}

void RecordWriter::PatchU32(std::size_t position, std::uint32_t value) {
    for (std::size_t i = 0; i < sizeof value; ++i) {
        bytes_[position + i] = static_cast<char>((value >> (8 * i)) & kByteMask);
    }
}

std::string RecordWriter::TakeBytes() {
    EndRecord();
    return std::move(bytes_);
}

void RecordWriter::EndRecord() {
    if (bodyStart_ < kHeaderSize) return;
    const std::size_t length = bytes_.size() - bodyStart_;
    bytes_[bodyStart_ - 2] = static_cast<char>(length & kByteMask);
    bytes_[bodyStart_ - 1] = static_cast<char>(length >> 8);
    bodyStart_ = 0;
}

}  // namespace ssq::xls
