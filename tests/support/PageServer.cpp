#include "support/PageServer.h"

#include <httplib.h>
#include <iconv.h>

#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace ssq {

class PageServer::Site {
  public:
    Site() : port_(server_.bind_to_any_port("127.0.0.1")) {
        if (port_ < 0) throw std::runtime_error("no port for the page server");
        server_.set_keep_alive_max_count(1);
        server_.Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
            Answer(request, response);
        });
        thread_ = std::thread([this] { server_.listen_after_bind(); });
        // A stop before the server runs would be lost.
        while (!server_.is_running()) std::this_thread::yield();
    }
    ~Site() {
        server_.stop();
        thread_.join();
    }
    Site(const Site&) = delete;
    Site& operator=(const Site&) = delete;

    int port() const { return port_; }
    void Serve(const std::string& path, Handler handler) {
        const std::lock_guard lock(mutex_);
        handlers_[path] = std::move(handler);
    }
    std::vector<std::string> requests() const {
        const std::lock_guard lock(mutex_);
        return requests_;
    }

  private:
    PageReply Find(const httplib::Request& request) {
        std::string head = "GET " + request.target + " \r\n";
        for (const auto& [name, value] : request.headers) head += name + ": " + value + "\r\n";
        const std::size_t mark = request.target.find('?');
        const std::lock_guard lock(mutex_);
        requests_.push_back(head);
        const auto handler = handlers_.find(request.path);
        if (handler == handlers_.end()) return {};
        return handler->second(mark == std::string::npos ? "" : request.target.substr(mark + 1));
    }
    void Answer(const httplib::Request& request, httplib::Response& response) {
        const PageReply reply = Find(request);
        std::this_thread::sleep_for(reply.delay);
        if (!reply.location.empty()) response.set_redirect(reply.location);
        if (reply.cutAt >= reply.body.size()) return response.set_content(reply.body, "text/html");
        const auto send = [part = reply.body.substr(0, reply.cutAt)](std::size_t, std::size_t,
                                                                     httplib::DataSink& sink) {
            sink.write(part.data(), part.size());
            return false;
        };
        response.set_content_provider(reply.body.size(), "text/html", send);
    }

    httplib::Server server_;
    int port_;
    mutable std::mutex mutex_;  // guards what follows
    std::map<std::string, Handler> handlers_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

PageServer::PageServer() : site_(std::make_unique<Site>()) {}

PageServer::~PageServer() = default;

std::string PageServer::url() const {
    return "http://127.0.0.1:" + std::to_string(site_->port());
}

void PageServer::Serve(const std::string& path, Handler handler) {
    site_->Serve(path, std::move(handler));
}

std::vector<std::string> PageServer::requests() const {
    return site_->requests();
}

std::string Gbk(const std::string& text) {
    const iconv_t converter = iconv_open("GBK", "UTF-8");
    std::string bytes(text.size() * 2, '\0');
    char* in = const_cast<char*>(text.data());
    char* out = bytes.data();
    std::size_t left = text.size();
    std::size_t room = bytes.size();
    const bool failed = iconv(converter, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
    iconv_close(converter);
    if (failed) throw std::runtime_error("not in GBK: " + text);
    bytes.resize(bytes.size() - room);
    return bytes;
}

}  // namespace ssq
