#pragma once

#include "link/ServerConnection.h"
#include "platform/MainQueue.h"
#include "platform/Worker.h"
#include "protocol/ReportBuffer.h"
#include "toolkit/ActivityIndicator.h"
#include "toolkit/Alert.h"
#include "toolkit/NotificationCenter.h"
#include "toolkit/ViewController.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <variant>

namespace lumbra {

/// What the link cycle needs of whoever owns the connection. Main thread.
class LinkOwner {
public:
    virtual std::shared_ptr<ServerConnection> serverConn() const = 0;
    /// The application has been in the background since it was launched.
    virtual bool appWasInBackground() const = 0;
    /// Reads the link settings again.
    virtual void updateFromPreferences() = 0;

protected:
    ~LinkOwner() = default;
};

/// What a screen needs around it. Everything outlives the screen.
struct ScreenContext {
    MainQueue& queue;
    Worker& worker;
    NotificationCenter& notifications;
    AlertPresenter& alerts;
    LinkOwner& owner;
};

/// The cycle that every screen runs over the one connection: attach, connect, announce, query, receive,
/// report a failure. A screen adds its query number, its controls and what its reports do. Main thread only.
class ScreenViewController : public ViewController, public ServerConnectionDelegate {
public:
    ScreenViewController(const ScreenContext& context, std::shared_ptr<View> view, int queryNumber);

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewWillDisappear() override;

    /// The application has become active while this screen is on show.
    void applicationDidBecomeActive();
    void displayConnectionError() override;
    /// Makes this screen the connection's delegate, then queries the unit if the link is open or else
    /// connects.
    void connectServer();
    void serverConnected() override;
    /// One state query, if queries are on; not a timer.
    void poll();
    void dataReceived(const ReceiveBuffer& buffer, std::size_t count) override;

protected:
    /// The text of one report, without its parentheses, as the unit's bytes (ISO 8859-1).
    virtual void processCommand(std::string_view report) = 0;

    /// Has `parse` (of a family of reports) read `report` and, where it is one from the configured unit, `handle` act on
    /// the typed report.
    template <class Parse, class Handle>
    void dispatch(Parse parse, std::string_view report, Handle handle) {
        if (const auto parsed = parse(report); parsed && parsed->unit == serverConn_->unit)
            std::visit(handle, parsed->report);
    }

    /// Frames `body` for the unit and sends it: what `sendData` returned, which a control's command ignores.
    std::int64_t send(std::string_view body);

    MainQueue& queue() { return context_.queue; }
    /// From `viewDidLoad` on.
    ServerConnection& link() { return *serverConn_; }
    ActivityIndicator& spinner() { return *spinner_.operator->(); }

private:
    ScreenContext context_;
    int queryNumber_;
    std::shared_ptr<ServerConnection> serverConn_;
    Outlet<ActivityIndicator> spinner_;
    ReportBuffer reports_;
};

} // namespace lumbra
