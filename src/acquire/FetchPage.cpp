#include <curl/curl.h>

#include <memory>

#include "acquire/getWWW.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

using Clock = std::chrono::steady_clock;

constexpr long kMostRedirects = 10;
constexpr int kWaitMs = 20;  // for the network, between two turns of the event loop

struct Body {
    std::string bytes;
    std::size_t largest = 0;
    Clock::time_point lastPiece = Clock::now();
};

// Taking fewer bytes than given makes the transfer fail.
std::size_t Receive(char* data, std::size_t size, std::size_t count, void* target) {
    Body& body = *static_cast<Body*>(target);
    body.lastPiece = Clock::now();
    if (size * count > body.largest - body.bytes.size()) return 0;
    body.bytes.append(data, size * count);
    return size * count;
}

using Transfer = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Transfers = std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)>;
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
    curl_easy_setopt(transfer, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
    // A fetch that is given up does not wait for the look-up of a name.
    curl_easy_setopt(transfer, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(transfer, CURLOPT_CONNECTTIMEOUT_MS,
                     static_cast<long>(options.connectTimeout.count()));
    curl_easy_setopt(transfer, CURLOPT_TIMEOUT_MS, static_cast<long>(options.totalTime.count()));
    curl_easy_setopt(transfer, CURLOPT_WRITEFUNCTION, Receive);
    curl_easy_setopt(transfer, CURLOPT_WRITEDATA, &body);
}

// Hands control to the event loop while the network is waited for.
CURLcode Perform(CURLM* transfers, Run& run, const FetchOptions& options, Body& body) {
    for (int running = 1;;) {
        curl_multi_perform(transfers, &running);
        if (running == 0) break;
        const auto before = Clock::now();
        if (before - body.lastPiece > options.silence) return CURLE_OPERATION_TIMEDOUT;
        if (!run.YieldNow()) return CURLE_ABORTED_BY_CALLBACK;
        // The site is not silent while nobody listens: a box may have stood.
        body.lastPiece += Clock::now() - before;
        curl_multi_poll(transfers, nullptr, 0, kWaitMs, nullptr);
    }
    int left = 0;
    const CURLMsg* message = curl_multi_info_read(transfers, &left);
    return message ? message->data.result : CURLE_RECV_ERROR;
}

std::string HostOf(const std::string& url) {
    const std::size_t scheme = url.find("://");
    const std::size_t start = scheme == std::string::npos ? 0 : scheme + 3;
    return url.substr(start, url.find_first_of("/?", start) - start);
}

std::string Reason(CURLcode code, CURL* transfer) {
    long status = 0;
    curl_easy_getinfo(transfer, CURLINFO_RESPONSE_CODE, &status);
    switch (code) {
        case CURLE_COULDNT_RESOLVE_HOST:
            return "找不到这个网站";
        case CURLE_COULDNT_CONNECT:
            return "连接不上";
        case CURLE_OPERATION_TIMEDOUT:
            return "没有回应";
        case CURLE_HTTP_RETURNED_ERROR:
            return "网站回答 " + std::to_string(status);
        case CURLE_WRITE_ERROR:
            return "网页太大";
        case CURLE_PARTIAL_FILE:
        case CURLE_RECV_ERROR:
            return "网页没有收全";
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CACERT_BADFILE:
            return "网站的证书不可信";
        default:
            return "读取失败";
    }
}

}  // namespace

std::optional<FetchedBody> FetchBody(Run& run, const std::string& url, std::string& fault,
                                     const FetchOptions& options) {
    const WaitCursor waiting(run.host());
    const Transfer transfer(curl_easy_init(), &curl_easy_cleanup);
    const Transfers transfers(curl_multi_init(), &curl_multi_cleanup);
    Headers headers(curl_slist_append(nullptr, "Cache-Control: no-cache"), &curl_slist_free_all);
    fault.clear();
    if (!transfer || !transfers || !headers ||
        !curl_slist_append(headers.get(), "Pragma: no-cache")) {
        fault = "内存不足";
        return std::nullopt;
    }
    Body body;
    body.largest = options.largestBody;
    SetUp(transfer.get(), url, options, headers, body);
    curl_multi_add_handle(transfers.get(), transfer.get());
    const CURLcode code = Perform(transfers.get(), run, options, body);
    curl_multi_remove_handle(transfers.get(), transfer.get());
    if (code == CURLE_ABORTED_BY_CALLBACK) return std::nullopt;
    if (code != CURLE_OK || body.bytes.empty()) {
        fault = "没有收到 " + HostOf(url) + " 的网页（" +
                (code == CURLE_OK ? "网页是空的" : Reason(code, transfer.get())) + "）";
        return std::nullopt;
    }
    const char* contentType = nullptr;
    curl_easy_getinfo(transfer.get(), CURLINFO_CONTENT_TYPE, &contentType);
    return FetchedBody{std::move(body.bytes), contentType ? contentType : ""};
}

std::string FetchPage(Run& run, const std::string& url, std::string& fault,
                      const FetchOptions& options) {
    const auto body = FetchBody(run, url, fault, options);
    return body ? DecodePage(body->bytes, body->contentType) : std::string();
}

}  // namespace ssq
