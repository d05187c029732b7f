#include "web/HostRules.h"

#include "web/HeaderText.h"

#include <arpa/inet.h>
#include <charconv>
#include <cstdint>
#include <optional>

namespace lumbra::web {

namespace {

constexpr std::uint16_t HTTP_PORT = 80;
constexpr std::uint16_t HTTPS_PORT = 443;

/// A host, in lower case, with the brackets of an IPv6 address, and a port.
struct Authority {
    std::string host;
    std::optional<std::uint16_t> port;
};

std::optional<Authority> parseAuthority(std::string_view text) {
    const auto end = text.starts_with('[') ? text.find(']') + 1 : text.find(':');
    const auto host = text.substr(0, end);
    if (host.empty())
        return std::nullopt;
    Authority result{lowerCase(host), std::nullopt};
    text.remove_prefix(host.size());
    if (text.empty())
        return result;
    std::uint16_t port = 0;
    const auto* last = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + 1, last, port);
    if (text.front() != ':' || error != std::errc() || rest != last || port == 0)
        return std::nullopt;
    result.port = port;
    return result;
}

bool isAddress(const std::string& host) {
    in6_addr address{}; // large enough for either kind
    if (host.starts_with('['))
        return inet_pton(AF_INET6, host.substr(1, host.size() - 2).c_str(), &address) == 1;
    return inet_pton(AF_INET, host.c_str(), &address) == 1;
}

} // namespace

HostRules::HostRules(std::string_view machine, const std::vector<std::string>& names)
    : machineNames_{"localhost"} {
    // A machine may know itself by its full name.
    const auto full = lowerCase(machine);
    const auto label = full.substr(0, full.find('.'));
    if (!label.empty())
        machineNames_.insert({full, label, label + ".local"});
    for (const auto& name : names)
        names_.insert(lowerCase(name));
}

bool HostRules::isOurs(std::string_view host) const {
    const auto asked = parseAuthority(host);
    return asked &&
           (isAddress(asked->host) || machineNames_.contains(asked->host) || names_.contains(asked->host));
}

bool HostRules::isSameOrigin(std::string_view origin, std::string_view host) const {
    constexpr std::string_view HTTP = "http://";
    constexpr std::string_view HTTPS = "https://";
    const bool isSecure = origin.starts_with(HTTPS);
    if (!isSecure && !origin.starts_with(HTTP))
        return false;
    const auto page = parseAuthority(origin.substr((isSecure ? HTTPS : HTTP).size()));
    const auto asked = parseAuthority(host);
    if (!page || !asked || page->host != asked->host || (isSecure && !names_.contains(page->host)))
        return false;
    const auto usual = isSecure ? HTTPS_PORT : HTTP_PORT;
    return page->port.value_or(usual) == asked->port.value_or(usual);
}

} // namespace lumbra::web
