#include "ui/xls/Utf16.h"

#include <glib.h>

#include <algorithm>
#include <memory>

namespace ssq::xls {

namespace {

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

}  // namespace ssq::xls
