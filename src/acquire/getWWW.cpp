#include "acquire/getWWW.h"

#include <curl/curl.h>

#include <memory>

#include "base/Regex.h"
#include "base/charset.h"
#include "base/text.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr long kMostRedirects = 10;

struct Body {
    std::string bytes;
    std::size_t largest = 0;
};

// Taking fewer bytes than given makes the transfer fail.
std::size_t Receive(char* data, std::size_t size, std::size_t count, void* target) {
    Body& body = *static_cast<Body*>(target);
    if (size * count > body.largest - body.bytes.size()) return 0;
    body.bytes.append(data, size * count);
    return size * count;
}

using Transfer = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Headers = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

void SetUp(CURL* transfer, const std::string& url, const FetchOptions& options,
           const Headers& headers, Body& body) {
    curl_easy_setopt(transfer, CURLOPT_URL, url.c_str());
    curl_easy_setopt(transfer, CURLOPT_USERAGENT, "VB Project");
    curl_easy_setopt(transfer, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(transfer, CURLOPT_PROXY, "");
    curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(transfer, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(transfer, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(transfer, CURLOPT_MAXREDIRS, kMostRedirects);
    curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(transfer, CURLOPT_CONNECTTIMEOUT_MS,
                     static_cast<long>(options.connectTimeout.count()));
    curl_easy_setopt(transfer, CURLOPT_TIMEOUT_MS, static_cast<long>(options.totalTimeout.count()));
    curl_easy_setopt(transfer, CURLOPT_WRITEFUNCTION, Receive);
    curl_easy_setopt(transfer, CURLOPT_WRITEDATA, &body);
}

// Whether a header or a tag, in lower case, names UTF-8 as its charset.
bool NamesUtf8(std::string_view declaration) {
    constexpr std::string_view kKey = "charset=";
    constexpr std::string_view kName = "utf-8";
    const auto key = declaration.find(kKey);
    if (key == std::string_view::npos) return false;
    const auto name = declaration.find_first_not_of("\"' ", key + kKey.size());
    return name != std::string_view::npos && declaration.substr(name, kName.size()) == kName;
}

// Whether the page says that it is UTF-8, in its header or near its start.
bool DeclaresUtf8(std::string_view body, std::string_view contentType) {
    constexpr std::size_t kDeclarationLies = 4096;  // bytes from the start
    if (NamesUtf8(LowerCase(contentType))) return true;
    const std::string start = LowerCase(body.substr(0, kDeclarationLies));
    for (std::size_t at = start.find("<meta"); at != std::string::npos;
         at = start.find("<meta", at + 1)) {
        if (NamesUtf8(start.substr(at, start.find('>', at) - at))) return true;
    }
    return false;
}

}  // namespace

std::string FetchPage(Host& host, const std::string& url, const FetchOptions& options) {
    const WaitCursor waiting(host);
    const Transfer transfer(curl_easy_init(), &curl_easy_cleanup);
    Headers headers(curl_slist_append(nullptr, "Cache-Control: no-cache"), &curl_slist_free_all);
    if (!transfer || !headers || !curl_slist_append(headers.get(), "Pragma: no-cache")) return {};
    Body body{{}, options.largestBody};
    SetUp(transfer.get(), url, options, headers, body);
    if (curl_easy_perform(transfer.get()) != CURLE_OK) return {};
    const char* contentType = nullptr;
    curl_easy_getinfo(transfer.get(), CURLINFO_CONTENT_TYPE, &contentType);
    return DecodePage(body.bytes, contentType ? contentType : "");
}

std::string DecodePage(std::string_view body, std::string_view contentType) {
    std::size_t faults = 0;
    if (DeclaresUtf8(body, contentType)) {
        std::string text = DecodeUtf8(body, faults);
        if (faults == 0) return text;
    }
    return DecodeGbk(body, faults);
}

std::string CutBetween(Host& host, std::string_view startMark, std::string_view endMark,
                       std::string_view text) {
    const std::size_t start = text.find(startMark);
    std::size_t p = 0;
    std::size_t q = 0;
    if (start != std::string_view::npos) {
        const std::size_t from = start + startMark.size();
        const std::size_t end = text.find(endMark, from);
        if (end != std::string_view::npos && end > from) {
            return std::string(text.substr(from, end - from));
        }
        p = CharacterCount(text.substr(0, from)) + 1;
        if (end != std::string_view::npos) q = p;
    }
    host.ShowBox("", std::string(text) + "错误!开始标记位置为:" + std::to_string(p) +
                         "结束标志位置为:" + std::to_string(q));
    return {};
}

std::string RegexCollect(std::string_view pattern, std::string_view text) {
    std::string collected;
    const auto matches = Regex(pattern).FindAll(text);
    if (!matches) return collected;
    for (const std::string& match : *matches) collected.append(match).append(kMatchEnd);
    return collected;
}

std::string RegexReplace(std::string_view pattern, std::string_view text,
                         std::string_view replacement) {
    return Regex(pattern).Replace(text, replacement).value_or(std::string(text));
}

std::string WithoutBlanks(std::string_view page) {
    return Replace(Replace(page, "\r\n", ""), " ", "");
}

std::string Excerpt(std::string_view value) {
    constexpr std::size_t kLongest = 40;
    std::string start = Characters(value, 1, kLongest);
    return start.size() < value.size() ? start + "…" : start;
}

}  // namespace ssq
