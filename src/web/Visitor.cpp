#include "web/Visitor.h"

#include "script/CommandInterpreter.h"
#include "script/EventReporter.h"
#include "script/JsonPrinter.h"
#include "script/Keywords.h"
#include "script/Numbers.h"
#include "script/Words.h"
#include "text/Json.h"
#include "web/VisitorSettings.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace lumbra::web {

using script::Arguments;
using script::Done;
using script::Failed;
using script::Outcome;

namespace {

constexpr std::string_view PAIR_FIRST = "this browser is not paired; only hello and pair CODE are understood";

} // namespace

/// What a visitor has once it is in.
struct Visitor::Session {
    Session(Visitor& visitor, std::int64_t startTab, bool isAdvanced)
        : settings(visitor.with_.platform.settings, startTab, isAdvanced),
          application({visitor.with_.platform.queue, visitor.with_.platform.worker,
                       visitor.with_.platform.streams, visitor.with_.platform.reachability, settings},
                      Reconnection::Automatic),
          printer(visitor.channel_),
          commands{{{"invite",
                     "shows the code for pairing another phone, and where the page is",
                     0,
                     0,
                     {},
                     [&visitor](auto&, Arguments) { return visitor.invite(); }}}} {
        reporter.emplace(application, printer, visitor.channel_);
        interpreter.emplace(
            application, printer, *reporter,
            script::CommandInterpreter::Delegate{
                .resumed = [&visitor] { visitor.pump(); },
                .quit =
                    [this] {
                        hasQuit = true;
                        application.terminate();
                        return Done{};
                    },
                .store = [this](auto key, auto value) { return store(key, std::move(value)); },
                .place = visitor.with_.place,
                .commands = commands});
    }

    Outcome store(std::string_view key, std::optional<SettingValue> value) {
        if (!VisitorSettings::isOwn(key))
            return Failed{"the link is set where the program runs"};
        if (value)
            settings.setValue(key, *std::move(value));
        else
            settings.remove(key);
        return Done{};
    }

    VisitorSettings settings;
    Application application;
    script::JsonPrinter printer;
    const std::array<script::Command, 1> commands;
    std::optional<script::EventReporter> reporter;
    std::optional<script::CommandInterpreter> interpreter;
    bool hasQuit = false;
    Subscription caughtUp;
};

Visitor::Visitor(const Surroundings& with, std::unique_ptr<QWebSocket> socket, ClientSocket& below,
                 std::function<void()> over)
    : with_(with),
      over_(std::move(over)),
      channel_(
          with.platform.queue, std::move(socket), below,
          {.received = [this](std::string line) { receive(std::move(line)); }, .ended = [this] { gone(); }}) {
    closeAfter(HELLO_TIME, QStringLiteral("the first message must be hello, within 10 s"));
}

Visitor::~Visitor() = default;

void Visitor::receive(std::string line) {
    if (step_ == Step::In) {
        waiting_.push_back(std::move(line));
        pump();
        if (waiting_.size() > MOST_WAITING)
            channel_.close(QWebSocketProtocol::CloseCodePolicyViolated,
                           QStringLiteral("too many commands wait"));
        return;
    }
    const auto [words, error] = script::splitWords(line);
    if (line.starts_with('#') || (words.empty() && error.empty()))
        return;
    const auto name = words.empty() ? std::string_view() : words.front();
    const auto arguments = Arguments(words).subspan(words.empty() ? 0 : 1);
    const auto fail = [&](std::string_view why) {
        channel_.write(Json::line(
            [&](Json& json) { json.field("reply", name).field("ok", false).field("error", why); }));
    };
    if (name == "hello")
        error.empty() ? greet(arguments) : fail(error);
    else if (step_ == Step::Greeting)
        channel_.close(QWebSocketProtocol::CloseCodePolicyViolated,
                       QStringLiteral("the first message must be hello"));
    else if (name == "pair")
        error.empty() ? pair(arguments) : fail(error);
    else
        fail(PAIR_FIRST);
}

void Visitor::greet(Arguments arguments) {
    const auto fail = [this](std::string_view why, bool mustPair) {
        channel_.write(Json::line([&](Json& json) {
            json.field("reply", "hello").field("ok", false).field("error", why);
            if (mustPair)
                json.field("pair", true);
        }));
    };
    const auto startTab = arguments.size() == 3 ? script::parseWhole(arguments[1]) : std::nullopt;
    if (!startTab || *startTab < 0 || !script::contains(script::FLAGS, arguments[2]))
        return fail("usage: hello TOKEN START_TAB ADVANCED; a position from 0, and true or false", false);
    if (with_.pairing && !with_.pairing->isPaired(arguments[0])) {
        if (std::exchange(step_, Step::Pairing) == Step::Greeting)
            closeAfter(PAIRING_TIME, QStringLiteral("this browser has not been paired"));
        return fail("this browser is not paired yet", true);
    }
    enter(*startTab, arguments[2] == "true");
}

void Visitor::pair(Arguments arguments) {
    std::string code; // its groups may come as words
    for (const auto& word : arguments)
        for (const char c : word)
            if (c != ' ')
                code += c;
    const auto result = with_.pairing->pair(code);
    channel_.write(Json::line([&](Json& json) {
        const auto* token = std::get_if<Pairing::Token>(&result);
        json.field("reply", "pair").field("ok", token != nullptr);
        if (token)
            json.field("token", token->text);
        else
            json.field("error", std::get<Pairing::Refusal>(result).error);
    }));
}

void Visitor::enter(std::int64_t startTab, bool isAdvanced) {
    step_ = Step::In;
    deadline_ = {};
    session_ = std::make_unique<Session>(*this, startTab, isAdvanced);
    session_->caughtUp = channel_.onCaughtUp([this] { pump(); });
    channel_.write(Json::line(
        [](Json& json) { json.field("reply", "hello").field("ok", true).field("version", LUMBRA_VERSION); }));
    session_->application.launch();
}

Outcome Visitor::invite() {
    session_->reporter->printInOrder();
    channel_.write(Json::line([this](Json& json) {
        json.field("reply", "invite").field("ok", true);
        if (with_.pairing)
            json.field("code", with_.pairing->code());
        else
            json.null("code");
        json.array("urls", with_.urls(), [](Json& array, const std::string& url) { array.text(url); });
    }));
    return script::Answered{};
}

void Visitor::pump() {
    while (!waiting_.empty() && channel_.isOpen() && !channel_.isBehind() &&
           !session_->interpreter->isHeld()) {
        const script::Line line{std::exchange(waiting_.front(), {})};
        waiting_.pop_front();
        moved();
        session_->interpreter->execute(line);
        if (session_->hasQuit)
            channel_.close(QWebSocketProtocol::CloseCodeNormal);
    }
}

void Visitor::closeAfter(std::chrono::seconds time, const QString& reason) {
    deadline_ = {};
    with_.platform.queue.postAfter(time, deadline_.guard([this, reason] {
        channel_.close(QWebSocketProtocol::CloseCodePolicyViolated, reason);
    }));
}

void Visitor::moved() {
    commandsAgain_ = true;
    if (std::exchange(hasCommanded_, true))
        return;
    commandsAgain_ = false;
    with_.platform.queue.postAfter(AFTERLIFE, life_.guard([this] {
        hasCommanded_ = false;
        if (commandsAgain_)
            moved();
    }));
}

bool Visitor::isMoving() {
    auto& application = session_->application;
    const auto& items = application.tabs().selectedViewController()->view().items();
    return hasCommanded_ || std::any_of(items.begin(), items.end(), [&](const View::Item& item) {
               const auto* hand = application.hands().find(*item.control);
               return hand && hand->isHeld();
           });
}

void Visitor::gone() {
    hasGone_ = true;
    const auto end = [this] {
        const auto over = std::move(over_);
        over();
    };
    waiting_.clear();
    if (!session_ || !isMoving())
        return end();
    session_->interpreter.reset();
    session_->reporter.reset();
    with_.platform.queue.postAfter(AFTERLIFE, life_.guard(end));
}

} // namespace lumbra::web
