#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "script/Output.h"
#include "web/ClientSocket.h"

#include <QObject>
#include <QString>
#include <QWebSocket>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace lumbra::web {

/// The WebSocket of a browser: a line a message, both ways. What a browser does or fails to do ends the channel, and
/// costs no more than a bound. Main thread only.
class Channel final : public script::Output {
public:
    /// The longest message that is taken, in bytes.
    static constexpr std::size_t MOST_MESSAGE = 4096;
    /// With so many bytes that the browser has not taken it is behind; below the second number it has caught up.
    static constexpr qint64 BEHIND = qint64{64} << 10;
    static constexpr qint64 CAUGHT_UP = qint64{32} << 10;
    /// A browser that has answered neither of two pings is gone.
    static constexpr std::chrono::seconds PING_TIME{12};
    /// One that has taken nothing for so many steps, while there is something, is closed: after 30 s.
    static constexpr std::chrono::seconds UNREAD_STEP{5};
    static constexpr int UNREAD_STEPS = 6;
    /// A browser that does not take part in a close is cut off.
    static constexpr std::chrono::seconds CLOSE_TIME{3};

    struct Delegate {
        std::function<void(std::string line)> received;
        /// The channel has ended. Called once, in a turn of its own; it may destroy the channel.
        std::function<void()> ended;
    };

    /// `queue` and `below`, the connection of the socket, outlive the channel.
    Channel(MainQueue& queue, std::unique_ptr<QWebSocket> socket, ClientSocket& below, Delegate delegate);
    ~Channel() override;
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;

    /// Sends each line as a message. What is written after the end is dropped.
    void write(std::string_view lines) override;
    bool isBehind() const override { return behind_; }
    bool isOpen() const { return open_; }
    /// Ends the channel with that code; it takes and gives nothing from now on.
    void close(QWebSocketProtocol::CloseCode code, const QString& reason = {});

private:
    void receive(const QString& message);
    void heard();
    void taken();
    void ping();
    void watchUnread();
    void caughtUp();
    void end();

    MainQueue& queue_;
    std::unique_ptr<QWebSocket> socket_; ///< null once the channel has ended
    ClientSocket& below_;
    Delegate delegate_;
    bool open_ = true;
    bool behind_ = false;
    int unanswered_ = 0; ///< pings
    int unread_ = 0;     ///< steps in which nothing was taken
    bool watchesUnread_ = false;
    Lifetime life_;
    std::unique_ptr<QObject> context_ = std::make_unique<QObject>(); ///< of what is heard of the socket
};

} // namespace lumbra::web
