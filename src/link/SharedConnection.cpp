#include "link/SharedConnection.h"

#include "protocol/Command.h"
#include "protocol/StateQuery.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lumbra {

namespace {

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

SharedConnection::Session::Session(SharedConnection& connection, StreamPair streams)
    : pair(std::move(streams)), queries(connection.queue_, reports, [this](const StateQuery& query) {
          return writer.write(*pair.output, bytesOf(frameCommand(query.unit, queryState(query.number))));
      }) {}

SharedConnection::Session::~Session() {
    pair.close();
}

SharedConnection::~SharedConnection() {
    for (const auto& tap : taps_) {
        tap->end(StreamEvent::EndEncountered);
        tap->postDelivery();
    }
}

void SharedConnection::enter(std::shared_ptr<Tap> tap) {
    linger_ = Lifetime();
    auto& entered = *taps_.emplace_back(std::move(tap));
    if (session_ && session_->isOpen()) {
        entered.opened(session_->reports.begun());
        entered.postDelivery();
        return;
    }
    queue_.postAfter(CONNECT_DEADLINE, lifetime_.guard([this, weak = std::weak_ptr(taps_.back())] {
        const auto late = weak.lock();
        if (!late || !late->isOpening())
            return;
        leave(*late);
        late->end(StreamEvent::ErrorOccurred);
        late->deliver();
    }));
    if (!session_ && !resting_)
        connect();
}

void SharedConnection::leave(const Tap& tap) {
    if (std::erase_if(taps_, [&](const auto& other) { return other.get() == &tap; }) == 0 || !session_)
        return;
    session_->queries.forget(&tap);
    if (!taps_.empty())
        return;
    linger_ = Lifetime();
    queue_.postAfter(LINGER, linger_.guard([this] { session_.reset(); }));
}

void SharedConnection::connect() {
    resting_ = true;
    queue_.postAfter(CONNECT_INTERVAL, lifetime_.guard([this] {
        resting_ = false;
        if (!session_ && !taps_.empty())
            connect();
    }));
    auto pair = network_.createPair(host_, port_);
    if (!pair.input) {
        for (const auto& tap : std::exchange(taps_, {})) {
            tap->end(StreamEvent::ErrorOccurred);
            tap->postDelivery();
        }
        return;
    }
    session_ = std::make_unique<Session>(*this, std::move(pair));
    session_->pair.open(*this);
}

void SharedConnection::handleEvent(Stream& stream, StreamEvent event) {
    // An application's work inside an event may end the link.
    const auto self = shared_from_this();
    const bool isOutput = &stream == session_->pair.output.get();
    switch (event) {
    case StreamEvent::OpenCompleted:
        (isOutput ? session_->outputIsOpen : session_->inputIsOpen) = true;
        if (session_->isOpen())
            opened();
        break;
    case StreamEvent::HasBytesAvailable:
        if (!isOutput)
            receive();
        break;
    case StreamEvent::HasSpaceAvailable:
        if (isOutput)
            hasSpace();
        break;
    case StreamEvent::ErrorOccurred:
    case StreamEvent::EndEncountered:
        while (readOnce() > 0) {
        }
        end(event);
        break;
    }
}

void SharedConnection::opened() {
    const auto taps = taps_;
    for (const auto& tap : taps)
        tap->opened(session_->reports.begun());
    for (const auto& tap : taps)
        tap->deliver();
}

std::ptrdiff_t SharedConnection::readOnce() {
    auto& input = *session_->pair.input;
    if (!input.hasBytesAvailable())
        return 0;
    std::array<std::uint8_t, 4096> buffer;
    const auto count = input.read(buffer);
    if (count > 0)
        session_->reports.feed(std::span(buffer).first(static_cast<std::size_t>(count)),
                               [this](std::string_view text) { receiveReport(text); });
    return count;
}

void SharedConnection::receive() {
    const auto& input = *session_->pair.input;
    for (std::size_t total = 0; total < TURN_LIMIT && input.hasBytesAvailable();) {
        const auto count = readOnce();
        if (count <= 0) {
            end(StreamEvent::EndEncountered);
            return;
        }
        total += static_cast<std::size_t>(count);
    }
    if (input.hasBytesAvailable() && !std::exchange(session_->receivePosted, true))
        queue_.post(session_->lifetime.guard([this] {
            const auto self = shared_from_this();
            session_->receivePosted = false;
            receive();
        }));
    const auto taps = taps_;
    for (const auto& tap : taps)
        if (tap->hasEnded())
            leave(*tap);
    for (const auto& tap : taps)
        tap->deliver();
}

void SharedConnection::receiveReport(std::string_view text) {
    auto& session = *session_;
    const auto begun = session.reports.begun();
    const bool repeats = std::exchange(session.lastReport, begun) == begun;
    if (repeats && session.lastIsEnd)
        return; // a ")" alone answers nobody
    if (!repeats) {
        const auto query = readEndOfState(text);
        session.lastIsEnd = query.has_value();
        frame_.assign(1, '(').append(text) += ')';
        if (query) {
            const auto askers = session.queries.end(*query);
            for (const auto& tap : taps_)
                if (std::find(askers.begin(), askers.end(), tap.get()) != askers.end())
                    tap->hear(begun, frame_);
            return;
        }
    }
    for (const auto& tap : taps_)
        tap->hear(begun, repeats ? ")" : frame_);
}

std::ptrdiff_t SharedConnection::send(const Tap& tap, std::span<const std::uint8_t> command) {
    auto& session = *session_;
    const auto whole = static_cast<std::ptrdiff_t>(command.size());
    const std::string_view text(reinterpret_cast<const char*>(command.data()), command.size());
    if (const auto query = readQuery(text)) {
        const auto result = session.queries.ask(*query, &tap);
        return result > 0 ? whole : result;
    }
    const auto parts = readCommand(text);
    const bool announces = parts && isSerialAnnouncement(parts->body);
    if (announces && session.announced.contains(parts->unit))
        return whole;
    const auto result = session.writer.write(*session.pair.output, command);
    if (announces && result > 0)
        session.announced.insert(parts->unit);
    return result;
}

void SharedConnection::hasSpace() {
    if (session_->writer.writeRest(*session_->pair.output) < 0 || !session_->writer.isWhole())
        return;
    session_->queries.resume();
    const auto taps = taps_;
    for (const auto& tap : taps)
        tap->offerSpace();
    for (const auto& tap : taps)
        tap->deliver();
}

void SharedConnection::end(StreamEvent lastEvent) {
    session_.reset();
    const auto taps = std::exchange(taps_, {});
    for (const auto& tap : taps)
        tap->end(lastEvent);
    for (const auto& tap : taps)
        tap->deliver();
}

} // namespace lumbra
