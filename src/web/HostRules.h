#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra::web {

/// Which names this server answers to, and which pages may open a WebSocket: a foreign page can neither reach the
/// server through a name of its own nor open a WebSocket from where it stands. Any thread.
class HostRules {
public:
    /// `machine` is this machine's name. `names` are further names; there a proxy may stand that speaks TLS.
    HostRules(std::string_view machine, const std::vector<std::string>& names);

    /// True if the Host field has an IP literal or one of the names, with or without a port.
    bool isOurs(std::string_view host) const;
    /// True if the Origin field names the same host and port as the Host field.
    bool isSameOrigin(std::string_view origin, std::string_view host) const;

private:
    std::set<std::string, std::less<>> machineNames_;
    std::set<std::string, std::less<>> names_;
};

} // namespace lumbra::web
