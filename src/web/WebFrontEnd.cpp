#include "web/WebFrontEnd.h"

#include "text/Json.h"

#include <QHostInfo>
#include <QNetworkInterface>

#include <algorithm>
#include <utility>

namespace lumbra {

using namespace web;

namespace {

/// True where browsers must be paired: not where only this machine's own reach the server, unless a proxy may stand
/// there for everybody.
bool asksToPair(const WebOptions& options) {
    return !options.isOpen && (!options.address.isLoopback() || !options.names.empty());
}

bool isEvery(const QHostAddress& address) {
    const auto every = {QHostAddress::Any, QHostAddress::AnyIPv4, QHostAddress::AnyIPv6};
    return std::any_of(every.begin(), every.end(), [&](auto any) { return address == any; });
}

std::string urlOf(const QHostAddress& address, std::uint16_t port) {
    const auto text = address.toString().toStdString();
    const bool isV6 = address.protocol() == QAbstractSocket::IPv6Protocol;
    return (isV6 ? "http://[" + text + "]:" : "http://" + text + ":") + std::to_string(port) + "/";
}

} // namespace

WebFrontEnd::WebFrontEnd(const Platform& platform, WebOptions options,
                         std::function<void(std::string_view)> print)
    : options_(std::move(options)),
      print_(std::move(print)),
      link_(platform.queue, platform.streams),
      key_(options_.keyFile),
      with_{{platform.queue, platform.worker, link_, platform.reachability, platform.settings},
            options_.place,
            nullptr,
            [this] { return urls(); }},
      server_(
          platform.queue, HostRules(QHostInfo::localHostName().toStdString(), options_.names),
          [this] { return visitorsHere() < MOST_VISITORS; },
          [this](auto socket, auto& below) { welcome(std::move(socket), below); }) {
    if (asksToPair(options_))
        with_.pairing = &pairing_.emplace(platform.queue, key_, [this] { announce(); });
}

WebFrontEnd::~WebFrontEnd() = default;

QString WebFrontEnd::start() {
    if (!key_.error().isEmpty())
        return key_.error();
    if (!server_.listen(options_.address, options_.port))
        return QStringLiteral("Can't listen on port %1 of %2: %3.")
            .arg(options_.port)
            .arg(isEvery(options_.address) ? QStringLiteral("every interface") : options_.address.toString(),
                 server_.errorString());
    announce();
    return {};
}

void WebFrontEnd::welcome(std::unique_ptr<QWebSocket> socket, ClientSocket& below) {
    if (visitorsHere() >= MOST_VISITORS) { // two have come at once
        socket->close(QWebSocketProtocol::CloseCodeGoingAway);
        return socket.release()->deleteLater();
    }
    // Those that have gone, and whose remotes live on, are as many at most as are here.
    if (visitors_.size() >= 2 * MOST_VISITORS)
        std::erase_if(visitors_, [first = true](const auto& visitor) mutable {
            return !visitor->isHere() && std::exchange(first, false);
        });
    const auto slot = std::make_shared<Visitor*>();
    visitors_.push_back(std::make_unique<Visitor>(with_, std::move(socket), below, [this, slot] {
        std::erase_if(visitors_, [slot](const auto& visitor) { return visitor.get() == *slot; });
    }));
    *slot = visitors_.back().get();
}

std::size_t WebFrontEnd::visitorsHere() const {
    return static_cast<std::size_t>(std::count_if(visitors_.begin(), visitors_.end(),
                                                  [](const auto& visitor) { return visitor->isHere(); }));
}

std::vector<std::string> WebFrontEnd::urls() const {
    const auto& listening = options_.address;
    if (!isEvery(listening))
        return {urlOf(listening, port())};
    std::vector<std::string> found;
    for (const auto protocol : {QAbstractSocket::IPv4Protocol, QAbstractSocket::IPv6Protocol})
        for (const auto& address : QNetworkInterface::allAddresses())
            if (address.protocol() == protocol && !address.isLoopback() && !address.isLinkLocal() &&
                (listening == QHostAddress::Any || listening.protocol() == protocol))
                found.push_back(urlOf(address, port()));
    if (found.empty()) // a machine without a network
        found.push_back(
            urlOf(listening == QHostAddress::AnyIPv6 ? QHostAddress::LocalHostIPv6 : QHostAddress::LocalHost,
                  port()));
    return found;
}

void WebFrontEnd::announce() {
    if (options_.json)
        return print_(Json::line([this](Json& json) {
            json.field("event", "web");
            json.array("urls", urls(), [](Json& array, const std::string& url) { array.text(url); });
            if (pairing_)
                json.field("code", pairing_->code());
            else
                json.null("code");
        }));
    std::string text;
    for (const auto& url : urls())
        text += "The remote is at " + url + "\n";
    if (pairing_)
        text += "The next browser pairs with the code " + pairing_->code() + "\n";
    print_(text);
}

} // namespace lumbra
