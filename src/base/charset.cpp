#include "base/charset.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <memory>

namespace ssq {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr auto kFailed = static_cast<std::size_t>(-1);

class Converter {
  public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from), &Close) {}

    // Converts until the end or the first fault; what was read leaves `bytes`. False at a fault.
    bool Convert(std::string_view& bytes, std::string& converted) const {
        std::array<char, 8192> buffer{};
        while (!bytes.empty()) {
            char* in = const_cast<char*>(bytes.data());  // iconv only reads it
            std::size_t left = bytes.size();
            char* out = buffer.data();
            std::size_t room = buffer.size();
            const std::size_t done = iconv(handle_.get(), &in, &left, &out, &room);
            const int error = errno;
            converted.append(buffer.data(), out);
            bytes.remove_prefix(bytes.size() - left);
            if (done == kFailed && error != E2BIG) return false;
        }
        return true;
    }

  private:
    static void Close(iconv_t handle) {
        if (reinterpret_cast<std::intptr_t>(handle) != -1) iconv_close(handle);
    }

    std::unique_ptr<void, decltype(&Close)> handle_;
};

}  // namespace

std::string DecodeText(const char* charset, std::string_view bytes, std::size_t& faults) {
    const Converter converter("UTF-8", charset);
    std::string text;
    while (!converter.Convert(bytes, text)) {
        text += kReplacement;
        ++faults;
        bytes.remove_prefix(1);
    }
    return text;
}

std::optional<std::string> EncodeGbk(std::string_view text) {
    std::string bytes;
    return Converter("GBK", "UTF-8").Convert(text, bytes) ? std::optional(bytes) : std::nullopt;
}

std::optional<std::string> DecodeTextFile(std::string_view bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    if (bytes.find('\0') != std::string_view::npos) return std::nullopt;
    std::size_t faults = 0;
    std::string text = DecodeUtf8(bytes, faults);
    if (faults == 0) return text;
    faults = 0;
    text = DecodeGbk(bytes, faults);
    return faults == 0 ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace ssq
