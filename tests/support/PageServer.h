// A web site on loopback for tests.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ssq {

// What the site sends; the fields below the body are faults on demand.
struct PageReply {
    std::string body = {};                  // as it goes over the wire
    std::string location = {};              // redirects there
    std::size_t cutAt = std::string::npos;  // the connection closes after so many bytes of the body
    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds pause{0};  // before each quarter of the body
    int status = 200;
};

class PageServer {
  public:
    // Given the query, such as "pagenum=1".
    using Handler = std::function<PageReply(const std::string& query)>;

    PageServer();
    ~PageServer();
    PageServer(const PageServer&) = delete;
    PageServer& operator=(const PageServer&) = delete;

    std::string url() const;
    void Serve(const std::string& path, Handler handler);
    // The heads of the requests so far: "GET path?query ", then "name: value", each line ended by
    // carriage return and line feed.
    std::vector<std::string> requests() const;

  private:
    class Site;
    std::unique_ptr<Site> site_;
};

// UTF-8 text as the sites encode it.
std::string Gbk(const std::string& text);

}  // namespace ssq
