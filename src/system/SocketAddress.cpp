#include "system/SocketAddress.h"

#include <QString>
#include <QUrl>

#include <algorithm>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <strings.h>

namespace lumbra {

namespace {

// A name has up to 253 characters; the rest leaves room for an address with a scope.
constexpr std::size_t LONGEST_HOST = 300;

std::vector<SocketAddress> addresses(const std::string& host, std::uint16_t port, int flags) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0)
        return {};
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
    std::vector<SocketAddress> result;
    for (const auto* entry = found; entry; entry = entry->ai_next) {
        SocketAddress address{};
        address.length = entry->ai_addrlen;
        std::memcpy(&address.storage, entry->ai_addr, entry->ai_addrlen);
        result.push_back(address);
    }
    return result;
}

bool isLoopback(const SocketAddress& address) {
    if (address.storage.ss_family == AF_INET) {
        sockaddr_in v4{};
        std::memcpy(&v4, &address.storage, sizeof v4);
        return ntohl(v4.sin_addr.s_addr) >> 24 == IN_LOOPBACKNET;
    }
    sockaddr_in6 v6{};
    std::memcpy(&v6, &address.storage, sizeof v6);
    const auto* bytes = v6.sin6_addr.s6_addr;
    constexpr unsigned char MAPPED_LOOPBACK[] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, IN_LOOPBACKNET};
    return std::memcmp(bytes, &in6addr_loopback, sizeof in6addr_loopback) == 0 ||
           std::memcmp(bytes, MAPPED_LOOPBACK, sizeof MAPPED_LOOPBACK) == 0;
}

} // namespace

bool isPossibleHost(std::string_view host) {
    return !host.empty() && host.size() <= LONGEST_HOST && std::none_of(host.begin(), host.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte <= ' ' || byte == 0x7f;
    });
}

std::vector<SocketAddress> numericAddresses(const std::string& host, std::uint16_t port) {
    return isPossibleHost(host) ? addresses(host, port, AI_NUMERICHOST) : std::vector<SocketAddress>();
}

std::string asciiHost(const std::string& host) {
    if (std::all_of(host.begin(), host.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return host;
    return QUrl::toAce(QString::fromStdString(host)).toStdString();
}

std::vector<SocketAddress> resolveAddresses(const std::string& host, std::uint16_t port) {
    return isPossibleHost(host) ? addresses(host, port, 0) : std::vector<SocketAddress>();
}

bool isLoopbackHost(const std::string& host) {
    if (strcasecmp(host.c_str(), "localhost") == 0)
        return true;
    const auto found = numericAddresses(host, 0);
    return !found.empty() && isLoopback(found.front());
}

} // namespace lumbra
