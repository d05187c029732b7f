#pragma once

#include "app/Application.h"
#include "platform/Lifetime.h"
#include "script/Command.h"
#include "web/Channel.h"
#include "web/Pairing.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra::web {

/// A browser that visits: once it has said hello, and is paired where that is asked for, it has a whole application of
/// its own and commands it. Main thread only.
class Visitor {
public:
    /// How long it may take for its hello; and to be paired, from its first hello on.
    static constexpr std::chrono::seconds HELLO_TIME{10};
    static constexpr std::chrono::minutes PAIRING_TIME{5};
    /// The most commands that may wait for another to be answered.
    static constexpr std::size_t MOST_WAITING = 64;
    /// For how long the application of a visitor that has gone while it moved something lives on: until that is sent,
    /// and sent once more where it must be.
    static constexpr std::chrono::milliseconds AFTERLIFE = 2 * Hand::HOLD;

    /// What it needs of the front end. All outlives it.
    struct Surroundings {
        Platform platform; ///< with the program's settings
        std::string place; ///< where the link goes, if that is not the unit's address; else empty
        Pairing* pairing;  ///< null: nobody is asked to pair
        std::function<std::vector<std::string>()> urls; ///< of the page
    };

    /// `over` is called once, in a turn of its own, when nothing is left to do; it may destroy the visitor.
    Visitor(const Surroundings& with, std::unique_ptr<QWebSocket> socket, ClientSocket& below,
            std::function<void()> over);
    ~Visitor();
    Visitor(const Visitor&) = delete;
    Visitor& operator=(const Visitor&) = delete;

    /// False once it has gone.
    bool isHere() const { return !hasGone_; }

private:
    struct Session;
    enum class Step { Greeting, Pairing, In };

    void receive(std::string line);
    void greet(script::Arguments arguments);
    void pair(script::Arguments arguments);
    void enter(std::int64_t startTab, bool isAdvanced);
    script::Outcome invite();
    void pump();
    void closeAfter(std::chrono::seconds time, const QString& reason);
    void moved();
    bool isMoving();
    void gone();

    const Surroundings& with_;
    std::function<void()> over_;
    Step step_ = Step::Greeting;
    bool hasGone_ = false;
    Channel channel_;
    std::unique_ptr<Session> session_; ///< once it is in
    std::deque<std::string> waiting_;  ///< commands
    bool hasCommanded_ = false;        ///< within AFTERLIFE, or up to twice that
    bool commandsAgain_ = false;
    Lifetime deadline_;
    Lifetime life_;
};

} // namespace lumbra::web
