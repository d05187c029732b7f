#pragma once

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace lumbra {

/// The other end of one connection, on blocking calls that give up after five seconds.
class Peer {
public:
    explicit Peer(int socket) : socket_(socket) {
        const timeval limit{5, 0};
        setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    }
    Peer(Peer&& other) noexcept : socket_(std::exchange(other.socket_, -1)) {}
    Peer& operator=(Peer&& other) noexcept {
        std::swap(socket_, other.socket_);
        return *this;
    }
    ~Peer() { close(); }

    bool accepted() const { return socket_ != -1; }
    void send(std::string_view bytes) {
        EXPECT_EQ(::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }
    /// Hands over what the system takes without waiting.
    std::size_t sendNow(std::string_view bytes) {
        const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    std::string receive(std::size_t size) {
        std::string bytes(size, '\0');
        const auto count = ::recv(socket_, bytes.data(), size, MSG_WAITALL);
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return bytes;
    }
    /// Everything until the other side ends the connection, and "!reset" or "!open" where it does not.
    std::string receiveAll() {
        std::string all;
        char buffer[65536];
        for (;;) {
            const auto count = ::recv(socket_, buffer, sizeof buffer, 0);
            if (count <= 0)
                return all + (count == 0 ? "" : errno == ECONNRESET ? "!reset" : "!open");
            all.append(buffer, static_cast<std::size_t>(count));
        }
    }
    /// True while the other side has not ended the connection. Only for a side that sends nothing.
    bool isOpen() const {
        char byte = 0;
        return ::recv(socket_, &byte, 1, MSG_DONTWAIT | MSG_PEEK) == -1 && errno == EAGAIN;
    }
    void close() {
        if (socket_ != -1)
            ::close(std::exchange(socket_, -1));
    }
    void reset() {
        const linger abort{1, 0};
        setsockopt(socket_, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
        close();
    }

private:
    int socket_;
};

/// A listening socket on 127.0.0.1 with a port of the kernel's choice.
class Listener {
public:
    explicit Listener(int backlog = 16) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, generic, sizeof address), 0);
        EXPECT_EQ(::listen(socket_, backlog), 0);
        EXPECT_EQ(::getsockname(socket_, generic, &length), 0);
        port_ = ntohs(address.sin_port);
    }
    ~Listener() { close(); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    std::uint16_t port() const { return port_; }
    /// The next connection; one that is not `accepted` where none comes within `patience` milliseconds.
    Peer accept(int patience = 5000) {
        pollfd ready{socket_, POLLIN, 0};
        return Peer(::poll(&ready, 1, patience) == 1 ? ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC)
                                                     : -1);
    }
    /// From here on connects are refused.
    void close() {
        if (socket_ != -1)
            ::close(std::exchange(socket_, -1));
    }

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
