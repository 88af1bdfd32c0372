// A web site on loopback for tests: HTTP/1.0, one request to a connection.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace ssq {

// What the site sends; the fields below the body are faults on demand.
struct PageReply {
    std::string body = {};                  // as it goes over the wire
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

    std::string url() const { return url_; }
    void Serve(const std::string& path, Handler handler);
    // The whole heads of the requests so far.
    std::vector<std::string> requests() const;

  private:
    void Answer(int connection);

    int listener_ = -1;
    std::string url_;
    mutable std::mutex mutex_;  // guards what follows
    std::map<std::string, Handler> handlers_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

// UTF-8 text as the sites encode it.
std::string Gbk(const std::string& text);

}  // namespace ssq
