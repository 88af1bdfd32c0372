#include "support/PageServer.h"

#include <arpa/inet.h>
#include <iconv.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace ssq {

PageServer::PageServer() : listener_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* raw = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, raw, size) != 0 || listen(listener_, 8) != 0 ||
        getsockname(listener_, raw, &size) != 0) {
        throw std::runtime_error("no port for the page server");
    }
    url_ = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    thread_ = std::thread([this] {
        for (int connection = 0; (connection = accept(listener_, nullptr, nullptr)) >= 0;) {
            Answer(connection);
            close(connection);
        }
    });
}

PageServer::~PageServer() {
    shutdown(listener_, SHUT_RDWR);  // ends the accept
    thread_.join();
    close(listener_);
}

void PageServer::Serve(const std::string& path, Handler handler) {
    const std::lock_guard lock(mutex_);
    handlers_[path] = std::move(handler);
}

std::vector<std::string> PageServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

void PageServer::Answer(int connection) {
    std::string head;
    std::array<char, 4096> buffer{};
    for (ssize_t got = 1; got > 0 && head.find("\r\n\r\n") == std::string::npos;) {
        got = recv(connection, buffer.data(), buffer.size(), 0);
        if (got > 0) head.append(buffer.data(), static_cast<std::size_t>(got));
    }
    const std::size_t path = head.find('/');
    const std::size_t mark = head.find('?', path);
    const std::size_t end = head.find(' ', path);
    PageReply reply;
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(head);
        const auto handler = handlers_.find(head.substr(path, std::min(mark, end) - path));
        const std::string query = mark < end ? head.substr(mark + 1, end - mark - 1) : "";
        if (handler != handlers_.end()) reply = handler->second(query);
    }
    std::this_thread::sleep_for(reply.delay);
    const std::string answer =
        (reply.location.empty() ? "HTTP/1.0 200 OK"
                                : "HTTP/1.0 302 Found\r\nLocation: " + reply.location) +
        "\r\nContent-Length: " + std::to_string(reply.body.size()) + "\r\n\r\n" +
        reply.body.substr(0, reply.cutAt);
    send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);  // blocks until all is sent
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
