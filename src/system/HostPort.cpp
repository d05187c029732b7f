#include "system/HostPort.h"

#include "system/SocketAddress.h"

#include <charconv>
#include <sys/socket.h>

namespace lumbra {

std::optional<HostPort> parseHostPort(std::string_view text) {
    const auto colon = text.rfind(':');
    if (colon == std::string_view::npos)
        return std::nullopt;

    auto host = text.substr(0, colon);
    if (host.size() >= 2 && host.front() == '[' && host.back() == ']') {
        host = host.substr(1, host.size() - 2);
        const auto address = numericAddresses(std::string(host), 0);
        if (address.empty() || address.front().storage.ss_family != AF_INET6)
            return std::nullopt;
    } else if (!isPossibleHost(host) || host.find_first_of(":[]") != std::string_view::npos) {
        return std::nullopt;
    }

    const auto digits = text.substr(colon + 1);
    std::uint16_t port = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
    if (error != std::errc() || end != digits.data() + digits.size() || port == 0)
        return std::nullopt;
    return HostPort{std::string(host), port};
}

std::string formatHostPort(const HostPort& place) {
    const bool isIpv6 = place.host.find(':') != std::string::npos;
    return (isIpv6 ? "[" + place.host + "]" : place.host) + ":" + std::to_string(place.port);
}

} // namespace lumbra
