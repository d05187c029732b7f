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

/// Resolves a host name or address text and a port to addresses, in the order in which to try them; none if
/// the host is unknown. May block for as long as the name service takes. Any thread.
using Resolver = std::function<std::vector<SocketAddress>(const std::string& host, std::uint16_t port)>;

/// True for text that may be a host name or an address: not empty, not longer than a host name can be,
/// without blanks and control characters. Characters beyond ASCII are allowed.
bool isPossibleHost(std::string_view host);

/// The address that `host` is the text of, IPv4 or IPv6 (with or without a scope); none if it is a name.
/// Never blocks.
std::vector<SocketAddress> numericAddresses(const std::string& host, std::uint16_t port);

/// `host` in ASCII, as the name service needs it (internationalised names are encoded); empty if it cannot be
/// encoded.
std::string asciiHost(const std::string& host);

/// The system's resolver, for a name in ASCII. It uses nothing that is destroyed before the process ends.
/// Blocks; any thread.
std::vector<SocketAddress> resolveAddresses(const std::string& host, std::uint16_t port);

/// True for "localhost" in any case, and for the text of a loopback address.
bool isLoopbackHost(const std::string& host);

} // namespace lumbra
