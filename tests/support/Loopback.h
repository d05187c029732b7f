#pragma once

#include "EventLoop.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <unistd.h>

namespace lumbra {

inline sockaddr_in loopback(std::uint16_t port) {
    return {AF_INET, htons(port), {htonl(INADDR_LOOPBACK)}, {}};
}

/// A socket with a connect to `port` of the loopback, complete or (`flags`: SOCK_NONBLOCK) under way.
inline int connectTo(std::uint16_t port, int receiveBuffer = 1 << 20, int flags = 0) {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | flags, 0);
    const int sendBuffer = 1 << 20;
    ::setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &sendBuffer, sizeof sendBuffer);
    ::setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
    const auto address = loopback(port);
    const int result = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    EXPECT_TRUE(result == 0 || errno == EINPROGRESS);
    return socket;
}

/// The other end of a connection. Unlike a toolkit's socket it reads when told, and tells an end from a reset.
class Peer {
public:
    explicit Peer(int socket) : socket_(socket) {}
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    ~Peer() { close(); }

    int socket() const { return socket_; }
    void send(std::string_view bytes) { EXPECT_EQ(sendNow(bytes), bytes.size()); }
    /// Hands over what the system takes without waiting.
    std::size_t sendNow(std::string_view bytes) {
        const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    /// All that has arrived, and then how it ended: "FIN" or "RST".
    const std::string& received() {
        char buffer[65536];
        for (ssize_t count = 1; count > 0 && !over_;) {
            count = ::recv(socket_, buffer, sizeof buffer, MSG_DONTWAIT);
            over_ = count == 0 || (count < 0 && errno != EAGAIN);
            received_ += over_ ? (count == 0 ? "FIN" : "RST")
                               : std::string(buffer, count > 0 ? static_cast<std::size_t>(count) : 0);
        }
        return received_;
    }
    bool receives(const std::string& text, std::size_t from = 0) {
        return runUntil([&] { return received().find(text, from) != std::string::npos; });
    }
    void close() {
        if (socket_ != -1)
            ::close(std::exchange(socket_, -1));
    }
    void reset() {
        const linger abort{1, 0};
        ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
        close();
    }

private:
    int socket_;
    std::string received_;
    bool over_ = false;
};

/// A listening socket on 127.0.0.1 with a port of the kernel's choice; one that refuses where `backlog` is -1.
class Listener {
public:
    explicit Listener(int backlog = 16) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        auto address = loopback(0);
        socklen_t length = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, generic, length), 0);
        EXPECT_TRUE(backlog == -1 || ::listen(socket_, backlog) == 0);
        EXPECT_EQ(::getsockname(socket_, generic, &length), 0);
        port_ = ntohs(address.sin_port);
    }
    Listener(const Listener&) = delete;
    ~Listener() { ::close(socket_); }

    std::uint16_t port() const { return port_; }
    std::string place() const { return "127.0.0.1:" + std::to_string(port_); }
    /// True if a connection waits, or comes within `patience` milliseconds.
    bool isAsked(int patience) const {
        pollfd ready{socket_, POLLIN, 0};
        return ::poll(&ready, 1, patience) == 1;
    }
    Peer accept() { return Peer(isAsked(20'000) ? ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC) : -1); }

private:
    int socket_;
    std::uint16_t port_ = 0;
};

/// How many sockets this process has open.
inline int openSockets() {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        count += std::filesystem::read_symlink(entry.path(), error).string().starts_with("socket:") ? 1 : 0;
    }
    return count;
}

} // namespace lumbra
