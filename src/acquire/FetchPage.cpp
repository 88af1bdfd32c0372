#include <curl/curl.h>

#include <memory>

#include "acquire/getWWW.h"
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

}  // namespace ssq
