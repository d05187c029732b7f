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

/// Parses "HOST:PORT", or "[ADDRESS]:PORT" for an IPv6 address. Nothing if the host is empty or cannot be a
/// host name, if the port is not a decimal number from 1 to 65535, or if an IPv6 address has no brackets,
/// because its port would be ambiguous. Any thread.
std::optional<HostPort> parseHostPort(std::string_view text);

/// The text that `parseHostPort` reads. Any thread.
std::string formatHostPort(const HostPort& place);

} // namespace lumbra
