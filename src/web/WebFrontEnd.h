#pragma once

#include "app/Application.h"
#include "link/SharedLink.h"
#include "platform/Lifetime.h"
#include "web/Pairing.h"
#include "web/TokenKey.h"
#include "web/Visitor.h"
#include "web/WebServer.h"

#include <QHostAddress>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra {

struct WebOptions {
    QHostAddress address;             ///< to listen on
    std::uint16_t port = 0;           ///< 0: the kernel chooses
    bool isOpen = false;              ///< nobody is asked to pair
    std::vector<std::string> names{}; ///< further names of this server, in ASCII
    QString keyFile{};                ///< empty: pairings end with the program
    bool json = false;                ///< announce in JSON
    std::string place{};              ///< where the link goes, if that is not the unit's address; else empty
};

/// The web front end: serves the page, and gives each browser a remote of its own. All remotes share one connection
/// to the unit. Main thread only.
class WebFrontEnd {
public:
    /// The most visitors at a time.
    static constexpr std::size_t MOST_VISITORS = 32;

    /// `platform` outlives the front end. `print` gets what is announced, in whole lines, and must not wait.
    WebFrontEnd(const Platform& platform, WebOptions options, std::function<void(std::string_view)> print);
    ~WebFrontEnd();
    WebFrontEnd(const WebFrontEnd&) = delete;
    WebFrontEnd& operator=(const WebFrontEnd&) = delete;

    /// Listens and announces where. Returns why it can't, as a sentence; empty on success.
    QString start();
    std::uint16_t port() const { return server_.serverPort(); }

private:
    void welcome(std::unique_ptr<QWebSocket> socket, web::ClientSocket& below);
    std::size_t visitorsHere() const;
    std::vector<std::string> urls() const;
    void announce();

    const WebOptions options_;
    const std::function<void(std::string_view)> print_;
    SharedLink link_;
    web::TokenKey key_;
    std::optional<web::Pairing> pairing_; ///< where it is asked for
    web::Visitor::Surroundings with_;
    web::WebServer server_;
    std::vector<std::unique_ptr<web::Visitor>> visitors_; ///< the earliest first
};

} // namespace lumbra
