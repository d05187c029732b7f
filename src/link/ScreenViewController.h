#pragma once

#include "link/ServerConnection.h"
#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "platform/Worker.h"
#include "protocol/ReportBuffer.h"
#include "toolkit/ActivityIndicator.h"
#include "toolkit/Alert.h"
#include "toolkit/ViewController.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <variant>

namespace lumbra {

namespace reports {
struct EndOfState;
}

/// What the link cycle needs from the owner of the connection. Main thread.
class LinkOwner {
public:
    virtual std::shared_ptr<ServerConnection> serverConn() const = 0;
    /// True if the application has been in the background since its launch.
    virtual bool appWasInBackground() const = 0;
    /// Reloads the link settings.
    virtual void updateFromPreferences() = 0;

protected:
    ~LinkOwner() = default;
};

/// The surroundings of a screen. Everything outlives the screen; the queue and the worker also outlive what it
/// posts to them.
struct ScreenContext {
    MainQueue& queue;
    Worker& worker;
    AlertPresenter& alerts;
    LinkOwner& owner;
};

/// The link cycle that every screen runs over the shared connection: become its delegate, connect, announce
/// the serial flag, query the state, receive reports, show a failure. A derived screen adds its query number,
/// its controls and the handling of its reports. Main thread only.
class ScreenViewController : public ViewController, public ServerConnectionDelegate {
public:
    ScreenViewController(const ScreenContext& context, std::shared_ptr<View> view, int queryNumber);

    void viewDidLoad() override;
    void viewWillAppear() override;

    /// Called when the application has become active and this screen is the current one.
    void applicationDidBecomeActive();
    void displayConnectionError() override;
    /// Makes this screen the connection's delegate. Then queries the unit if the link is open, else connects.
    void connectServer();
    void serverConnected() override;
    /// Sends one state query if queries are enabled. There is no timer.
    void poll();
    void dataReceived(const ReceiveBuffer& buffer, std::size_t count) override;

protected:
    /// Handles one report: its text without the parentheses, as the unit's bytes (ISO 8859-1), valid inside
    /// this call only.
    virtual void processCommand(std::string_view report) = 0;

    /// Parses `report` with a family's `parse` function. If it is a report from the configured unit, calls
    /// `handle` with the typed report.
    template <class Parse, class Handle>
    void dispatch(Parse parse, std::string_view report, Handle handle) {
        if (const auto parsed = parse(report); parsed && parsed->unit == serverConn_->unit)
            std::visit(handle, parsed->report);
    }

    /// The answer to the state query is complete.
    void handle(const reports::EndOfState&);

    /// Frames `body` for the unit and sends it. Returns what `sendData` returned; the commands of controls
    /// ignore it.
    std::int64_t send(std::string_view body);

    MainQueue& queue() { return context_.queue; }
    /// `work` as a function to post to the queue. It does nothing once this screen is gone.
    template <class Work>
    auto whileAlive(Work work) const {
        return life_.guard(std::move(work));
    }
    /// Valid from `viewDidLoad` on.
    ServerConnection& link() { return *serverConn_; }

private:
    ScreenContext context_;
    int queryNumber_;
    std::shared_ptr<ServerConnection> serverConn_;
    Outlet<ActivityIndicator> spinner_;
    ReportBuffer reports_;
    Lifetime life_;
};

} // namespace lumbra
