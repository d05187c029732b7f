#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumbra {

/// A host name or address text, without brackets, and a TCP port.
struct HostPort {
    std::string host;
    std::uint16_t port;
};

/// Reads "HOST:PORT", or "[v6]:PORT" for an IPv6 address. Nothing where the host is empty or no possible
/// host, where the port is not 1 to 65535 in plain decimal, and for an IPv6 address without brackets: where
/// its port begins could only be guessed.
std::optional<HostPort> parseHostPort(std::string_view text);

} // namespace lumbra
