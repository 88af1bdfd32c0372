#include "support/PageServer.h"

#include <arpa/inet.h>
#include <iconv.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace ssq {

namespace {

void SendAll(int connection, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

std::string ReceiveHead(int connection) {
    std::string head;
    std::array<char, 4096> buffer{};
    while (head.find("\r\n\r\n") == std::string::npos) {
        const ssize_t got = recv(connection, buffer.data(), buffer.size(), 0);
        if (got <= 0) break;
        head.append(buffer.data(), static_cast<std::size_t>(got));
    }
    return head;
}

std::string ReplyHead(const PageReply& reply) {
    if (!reply.location.empty()) return "HTTP/1.0 302 Found\r\nLocation: " + reply.location;
    return "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(reply.body.size());
}

}  // namespace

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
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Accept(); });
}

PageServer::~PageServer() {
    stopping_ = true;
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
}

std::string PageServer::url() const {
    return "http://127.0.0.1:" + std::to_string(port_);
}

void PageServer::Serve(const std::string& path, Handler handler) {
    const std::lock_guard lock(mutex_);
    handlers_[path] = std::move(handler);
}

std::vector<std::string> PageServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::string PageServer::lastHead() const {
    const std::lock_guard lock(mutex_);
    return lastHead_;
}

void PageServer::Accept() {
    while (!stopping_) {
        const int connection = accept(listener_, nullptr, nullptr);
        if (connection < 0) continue;
        Answer(connection);
        close(connection);
    }
}

void PageServer::Answer(int connection) {
    const std::string head = ReceiveHead(connection);
    const std::size_t from = head.find(' ') + 1;
    const std::string target = head.substr(from, head.find(' ', from) - from);
    const std::size_t mark = target.find('?');
    const std::string query = mark == std::string::npos ? "" : target.substr(mark + 1);
    PageReply reply;
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(target);
        lastHead_ = head;
        const auto handler = handlers_.find(target.substr(0, mark));
        if (handler != handlers_.end()) reply = handler->second(query);
    }
    std::this_thread::sleep_for(reply.delay);
    SendAll(connection, ReplyHead(reply) + "\r\n\r\n");
    SendAll(connection, std::string_view(reply.body).substr(0, reply.cutAt));
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
