// A web site on loopback for tests: HTTP/1.0, one request to a connection.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace ssq {

// What the site sends; the fields below the body are faults on demand.
struct PageReply {
    std::string body;                       // as it goes over the wire
    std::string location = {};              // redirects there
    std::size_t cutAt = std::string::npos;  // the connection closes after so many bytes of the body
    std::chrono::milliseconds delay{0};
};

class PageServer {
  public:
    // Given the query, such as "pagenum=1".
    using Handler = std::function<PageReply(const std::string& query)>;

    PageServer();
    ~PageServer();
    PageServer(const PageServer&) = delete;
    PageServer& operator=(const PageServer&) = delete;

    // Scheme, host and port.
    std::string url() const;

    void Serve(const std::string& path, Handler handler);

    // Path and query of each request so far, and the whole head of the last one.
    std::vector<std::string> requests() const;
    std::string lastHead() const;

  private:
    void Accept();
    void Answer(int connection);

    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> stopping_ = false;
    mutable std::mutex mutex_;  // guards what follows
    std::map<std::string, Handler> handlers_;
    std::vector<std::string> requests_;
    std::string lastHead_;
    std::thread thread_;
};

// UTF-8 text as the sites encode it.
std::string Gbk(const std::string& text);

}  // namespace ssq
