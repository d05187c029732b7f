#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <vector>

namespace lumbra {

/// The address and port of one end of a TCP connection, as the socket calls take it.
struct SocketAddress {
    sockaddr_storage storage;
    socklen_t length;
};

/// Turns a host name or address text and a port into addresses in the order in which to try them; none where
/// the host is unknown. May block for as long as the name service takes; any thread.
using Resolver = std::function<std::vector<SocketAddress>(const std::string& host, std::uint16_t port)>;

/// True for text that can be a host name or an address at all: not empty, no longer than a host name gets,
/// and without blanks and control characters. Names beyond ASCII count as possible.
bool isPossibleHost(std::string_view host);

/// The address that `host` spells out, IPv4 or IPv6 (with a scope or without); none where it is a name. Never
/// blocks.
std::vector<SocketAddress> numericAddresses(const std::string& host, std::uint16_t port);

/// `host` as the name service knows it: a name beyond ASCII in its ASCII form, empty where it has none.
std::string asciiHost(const std::string& host);

/// The system's resolver, for a name in ASCII. Uses nothing that ends before the process does.
std::vector<SocketAddress> resolveAddresses(const std::string& host, std::uint16_t port);

/// True for "localhost", whatever its case, and for the text of an address on the loopback.
bool isLoopbackHost(const std::string& host);

} // namespace lumbra
