#include "support/PageServer.h"

#include <httplib.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "base/charset.h"

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
        response.status = reply.status;
        if (!reply.location.empty()) response.set_redirect(reply.location);
        if (reply.cutAt >= reply.body.size() && reply.pause.count() == 0) {
            return response.set_content(reply.body, "text/html");
        }
        const auto send = [reply](std::size_t offset, std::size_t, httplib::DataSink& sink) {
            std::this_thread::sleep_for(reply.pause);
            const std::size_t end = std::min(reply.cutAt, reply.body.size());
            const std::size_t size = std::min(reply.body.size() / 4 + 1, end - offset);
            return size > 0 && sink.write(reply.body.data() + offset, size);
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
    auto bytes = EncodeGbk(text);
    if (!bytes) throw std::runtime_error("not in GBK: " + text);
    return *std::move(bytes);
}

}  // namespace ssq
