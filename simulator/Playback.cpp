#include "simulator/Playback.h"

#include "system/Printable.h"

#include <algorithm>
#include <sys/socket.h>
#include <utility>

namespace lumbra::sim {

namespace {

using Kind = TraceEntry::Kind;

/// What a remote sends beyond this size during a pause stays in the kernel.
constexpr std::size_t MOST_READ = 1 << 16;

/// A pause is waited for in parts: a timer can't count the milliseconds of a month.
constexpr std::chrono::hours LONGEST_WAIT{1};
/// A longer pause is announced.
constexpr std::chrono::minutes LONG_PAUSE{1};

std::string inLine(const TraceEntry& entry) {
    return " (line " + std::to_string(entry.line) + ")";
}

} // namespace

Playback::Playback(QTcpSocket* socket, std::vector<TraceEntry> entries, std::chrono::microseconds opened,
                   Pace pace, bool verbose, Tell tell, QObject* parent)
    : QObject(parent),
      socket_(socket),
      entries_(std::move(entries)),
      pace_(pace),
      verbose_(verbose),
      tell_(std::move(tell)),
      mark_(opened) {
    socket_->setParent(this);
    socket_->setReadBufferSize(MOST_READ);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    sinceMark_.start();
    pause_.setSingleShot(true);
    pause_.setTimerType(Qt::PreciseTimer);
    patience_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &Playback::advance);
    connect(&patience_, &QTimer::timeout, this,
            [this] { tell_("! waits for " + printable(entries_[next_].text) + inLine(entries_[next_])); });
    connect(socket_, &QTcpSocket::readyRead, this, &Playback::advance);
    connect(socket_, &QTcpSocket::bytesWritten, this, [this] {
        if (endAfterWrite_)
            end();
    });
    connect(socket_, &QTcpSocket::disconnected, this, &Playback::disconnected, Qt::QueuedConnection);
    QTimer::singleShot(0, this, &Playback::advance);
}

void Playback::advance() {
    patience_.stop();
    read();
    while (next_ < entries_.size() && entries_[next_].kind != Kind::Closed) {
        const auto& entry = entries_[next_];
        if (entry.kind == Kind::Sent) {
            if (takeExpected(entry))
                continue;
            if (socket_->isOpen() && socket_->bytesAvailable() > 0) // more than one reading takes
                QTimer::singleShot(0, this, &Playback::advance);
            patience_.start(PATIENCE);
            return;
        }
        if (const auto left = pauseBefore(entry); left >= std::chrono::milliseconds(1)) {
            if (left > LONG_PAUSE && toldPause_ != next_)
                tell_("! pauses for " +
                      std::to_string(std::chrono::ceil<std::chrono::seconds>(left).count()) + " s" +
                      inLine(entry));
            toldPause_ = next_;
            pause_.start(std::chrono::ceil<std::chrono::milliseconds>(
                std::min<std::chrono::microseconds>(left, LONGEST_WAIT)));
            return;
        }
        if (!socket_->isOpen()) // `disconnected` follows
            return;
        ++next_;
        play(entry);
    }
    takeSurplus();
}

void Playback::read() {
    // What is expected may be longer than what is read ahead.
    const auto expected = next_ < entries_.size() && entries_[next_].kind == Kind::Sent
                              ? entries_[next_].text.size()
                              : std::size_t{0};
    if (socket_->isOpen() && input_.size() < std::max(MOST_READ, expected))
        input_ += socket_->readAll().toStdString();
}

std::chrono::microseconds Playback::pauseBefore(const TraceEntry& entry) const {
    if (pace_ == Pace::Fast)
        return {};
    const std::chrono::nanoseconds passed(sinceMark_.nsecsElapsed());
    return entry.time - mark_ - std::chrono::duration_cast<std::chrono::microseconds>(passed);
}

bool Playback::takeExpected(const TraceEntry& entry) {
    const auto& expected = entry.text;
    if (input_.starts_with(expected)) {
        input_.erase(0, expected.size());
        if (verbose_)
            tell_("> " + printable(expected));
        passed(entry);
        return true;
    }
    const bool mayGoOn = input_.size() < LONGEST_COMMAND && input_.find(']') == std::string::npos;
    if (expected.starts_with(input_) || mayGoOn)
        return false;
    if (!expectedBehind(next_).empty() && input_.starts_with(expectedBehind(next_))) {
        tell_("? expected " + printable(expected) + ", which was left out" + inLine(entry));
        missed_.push_back(expected);
        passed(entry);
        return true;
    }
    const auto got = takeCommand();
    if (const auto late = std::find(missed_.begin(), missed_.end(), got); late != missed_.end()) {
        tell_("? got " + printable(got) + " late");
        missed_.erase(late);
        return true;
    }
    tell_("? expected " + printable(expected) + ", got " + printable(got) + inLine(entry));
    missed_.push_back(expected);
    passed(entry);
    return true;
}

std::string Playback::takeCommand() {
    auto command = input_.substr(0, std::min({input_.find(']'), input_.size(), LONGEST_COMMAND}) + 1);
    input_.erase(0, command.size());
    return command;
}

std::string Playback::expectedBehind(std::size_t position) const {
    const auto found =
        std::find_if(entries_.begin() + static_cast<std::ptrdiff_t>(position) + 1, entries_.end(),
                     [](const TraceEntry& entry) { return entry.kind == Kind::Sent; });
    return found == entries_.end() ? std::string() : found->text;
}

void Playback::passed(const TraceEntry& entry) {
    ++next_;
    mark_ = entry.time;
    sinceMark_.restart();
}

void Playback::play(const TraceEntry& entry) {
    if (entry.kind == Kind::Received) {
        socket_->write(entry.text.data(), static_cast<qint64>(entry.text.size()));
        if (verbose_)
            tell_("< " + printable(entry.text));
    } else if (entry.kind == Kind::End) {
        tell_("! ended, as in the trace");
        endAfterWrite_ = true;
        end();
    } else if (entry.kind == Kind::Error) {
        tell_("! reset, as in the trace");
        socket_->flush();
        // Closing a socket that must not linger sends RST instead of FIN.
        const linger now{1, 0};
        ::setsockopt(static_cast<int>(socket_->socketDescriptor()), SOL_SOCKET, SO_LINGER, &now, sizeof now);
        socket_->abort();
        next_ = entries_.size(); // what the remote still had to read can't be sent any more
    }
}

void Playback::end() {
    // Only our direction is closed, because closing a socket with unread commands sends RST.
    if (socket_->bytesToWrite() == 0)
        ::shutdown(static_cast<int>(socket_->socketDescriptor()), SHUT_WR);
}

void Playback::takeSurplus() {
    while (input_.find(']') != std::string::npos || input_.size() >= LONGEST_COMMAND)
        tell_("? expected nothing more, got " + printable(takeCommand()));
}

void Playback::disconnected() {
    patience_.stop();
    pause_.stop();
    const auto left = std::count_if(entries_.begin() + static_cast<std::ptrdiff_t>(next_), entries_.end(),
                                    [](const TraceEntry& entry) { return entry.kind != Kind::Closed; });
    tell_(left == 0 ? "! closed, all is played"
                    : "! closed by the remote, " + std::to_string(left) + " lines of the trace are left" +
                          inLine(entries_[next_]));
    Q_EMIT closed();
}

} // namespace lumbra::sim
