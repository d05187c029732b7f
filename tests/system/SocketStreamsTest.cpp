#include "Limited.h"
#include "Loopback.h"
#include "system/QtMainQueue.h"
#include "system/SocketStreamFactory.h"

#include <QAbstractEventDispatcher>

#include <atomic>
#include <bit>
#include <latch>

namespace lumbra::test {

using namespace std::chrono_literals;

SocketAddress loopbackAddress(std::uint16_t port) {
    return numericAddresses("127.0.0.1", port).front();
}

/// A host that never answers: a listener whose queue of connections is full drops every further one.
struct SilentHost {
    std::uint16_t port() const { return listener.port(); }

    Listener listener{0};
    Peer first{connectTo(port(), 4096, SOCK_NONBLOCK)}, second{connectTo(port(), 4096, SOCK_NONBLOCK)};
};

/// A pair of streams, everything that they report, and what was read.
class SocketStreams : public ::testing::Test, public StreamDelegate {
protected:
    void open(SocketStreamFactory& from, const std::string& host, std::uint16_t port) {
        pair = from.createPair(host, port);
        pair.open(*this);
        EXPECT_EQ(log, "") << "nothing is reported inside open";
    }
    Peer connect() {
        log.clear();
        received.clear();
        open(factory, "127.0.0.1", listener.port());
        EXPECT_TRUE(runUntil([&] { return log == "in.open out.open "; })) << log;
        log.clear();
        return listener.accept();
    }
    void handleEvent(Stream& stream, StreamEvent event) override {
        last = &stream == static_cast<Stream*>(pair.input.get()) ? "in." : "out.";
        static constexpr const char* NAMES[] = {"open ", "bytes ", "space ", "error ", "end "};
        log += last += NAMES[std::countr_zero(static_cast<unsigned>(event))];
        if (event == StreamEvent::HasBytesAvailable)
            onBytes();
        if (onEvent)
            onEvent();
    }
    bool isOver() const { return last == "in.end " || last.ends_with("error "); }
    std::ptrdiff_t write(const std::string& text) {
        return pair.output->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }
    std::ptrdiff_t readSome(std::size_t size) {
        std::vector<std::uint8_t> buffer(size);
        const auto count = pair.input->read(buffer);
        received.append(buffer.begin(), buffer.begin() + std::max<std::ptrdiff_t>(count, 0));
        return count;
    }
    void readAll() {
        while (pair.input->hasBytesAvailable())
            ASSERT_GT(readSome(256), 0);
    }
    void release() { pair = {}; }

    Listener listener;
    QtMainQueue queue;
    SocketStreamFactory factory{queue};
    StreamPair pair;
    std::string log, last, received;
    std::function<void()> onBytes = [this] { readAll(); };
    std::function<void()> onEvent;
};

TEST_F(SocketStreams, CarryBytesBothWaysAndReportTheEndOnce) {
    auto peer = connect();
    EXPECT_EQ(write("[U1APPQ0]"), 9);
    EXPECT_TRUE(peer.receives("[U1APPQ0]"));
    EXPECT_LT(readSome(1), 0) << "nothing has arrived, which is no end";
    peer.send(std::string("(U1\0\xff)", 6));
    ASSERT_TRUE(runUntil([&] { return received.size() == 6; }));
    peer.send("last");
    peer.close();
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    pair.input->scheduleOnMainQueue();
    settle();
    EXPECT_EQ(received, std::string("(U1\0\xff)last", 10));
    EXPECT_EQ(log, "in.bytes in.bytes in.end ");
    EXPECT_EQ(readSome(1), 0);
}

TEST_F(SocketStreams, FailedConnectsAreOneErrorInALaterTurn) {
    const Listener refusing{-1};
    const SilentHost silent;
    const Resolver unknown = [](const std::string& host, auto) {
        EXPECT_TRUE(isPossibleHost(host)) << "not worth asking for";
        return std::vector<SocketAddress>();
    };
    const auto fails = [&](const std::string& host, std::uint16_t port) {
        SocketStreamFactory impatient(queue, 50ms, unknown);
        log.clear();
        open(impatient, host, port);
        EXPECT_TRUE(runUntil([&] { return !log.empty(); })) << host << port;
        settle();
        EXPECT_EQ(log, "in.error ") << host << port;
        EXPECT_EQ(write("x"), -1) << host << port;
        release();
    };
    for (const int port : {+refusing.port(), +silent.port(), 0})
        fails("127.0.0.1", static_cast<std::uint16_t>(port));
    for (const auto& host : std::initializer_list<std::string>{
             "unit.invalid", "", {"127.0.0.1\0", 10}, "\xff\xfe", "[::1]", std::string(100000, 'a')})
        fails(host, 23);
    log.clear();
    auto descriptors = std::make_unique<Limited>(RLIMIT_NOFILE, 0);
    open(factory, "127.0.0.1", 23);
    descriptors.reset();
    EXPECT_TRUE(runUntil([&] { return isOver(); }));
}

TEST_F(SocketStreams, AddressesOfANameAreTriedInOrderWithinOneDeadline) {
    const Listener refusing{-1};
    const SilentHost silent;
    Listener better; // but behind the good one, which is the fixture's
    const auto resolve = [&](const std::string& host, std::uint16_t port) {
        EXPECT_EQ(host + std::to_string(port), "unit.local23");
        return std::vector{loopbackAddress(refusing.port()), loopbackAddress(silent.port()),
                           loopbackAddress(listener.port()), loopbackAddress(better.port())};
    };
    SocketStreamFactory patient(queue, 600ms, resolve);
    open(patient, "unit.local", 23);
    ASSERT_TRUE(runUntil([&] { return !log.empty(); }));
    EXPECT_EQ(log, "in.open out.open ");
    EXPECT_TRUE(listener.isAsked(20'000) && !better.isAsked(0));
}

TEST_F(SocketStreams, ClosingDuringALookupOrAConnectReportsNothingAndKeepsNothing) {
    const SilentHost silent;
    const int before = openSockets();
    open(factory, "127.0.0.1", silent.port());
    settle();
    EXPECT_EQ(openSockets(), before + 1);
    release();
    EXPECT_EQ(openSockets(), before);

    for (const bool closeFirst : {true, false}) {
        // A name service that answers only after the streams have gone, or not before the deadline.
        const auto goOn = std::make_shared<std::latch>(1), answered = std::make_shared<std::latch>(1);
        SocketStreamFactory asking(queue, closeFirst ? 10s : 20ms, [=](const auto&, auto port) {
            goOn->wait();
            answered->count_down();
            return std::vector<SocketAddress>{loopbackAddress(port)};
        });
        open(asking, "unit.local", silent.port());
        closeFirst ? release() : void();
        EXPECT_TRUE(runUntil([&] { return closeFirst || log == "in.error "; }));
        goOn->count_down();
        answered->wait();
        settle();
        EXPECT_EQ(log, closeFirst ? "" : "in.error ");
        EXPECT_EQ(openSockets(), before);
    }
}

// A name service that does not answer costs one thread, however often a person leaves and returns.
TEST_F(SocketStreams, ALookUpUnderWayIsJoined) {
    std::latch goOn(1);
    std::atomic<int> lookUps = 0;
    SocketStreamFactory asking(queue, 10s, [&](const std::string& host, auto) {
        ++lookUps;
        EXPECT_EQ(host, "xn--kche-0ra.local");
        goOn.wait();
        return std::vector<SocketAddress>{loopbackAddress(listener.port())};
    });
    for (int attempt = 0; attempt < 20; ++attempt) {
        release();
        open(asking, attempt == 7 ? "xn--kche-0ra.local" : "k\303\274che.local", 23);
        settle();
    }
    goOn.count_down();
    ASSERT_TRUE(runUntil([&] { return log == "in.open out.open "; }));
    EXPECT_EQ(lookUps, 1);
    release();
    log.clear();
    open(asking, "k\303\274che.local", 23);
    ASSERT_TRUE(runUntil([&] { return lookUps == 2; })) << "an answer is no cache";
}

TEST_F(SocketStreams, WhatArrivedComesBeforeTheOneEndOrError) {
    const std::tuple<std::size_t, bool, bool, std::string> cases[] = {
        // size, whether the peer resets, whether the input is closed; a write meets the reset of a few bytes
        {100000, false, false, "in.bytes in.end "},
        {100000, true, false, "in.bytes in.error "},
        {6, true, false, "in.bytes in.error "},
        {6, true, true, "out.error "}};
    for (const auto& [size, reset, inputClosed, expected] : cases) {
        auto peer = connect();
        if (inputClosed)
            pair.input->close();
        for (std::size_t sent = 0; sent < size;)
            sent += peer.sendNow(std::string(size - sent, 'r'));
        reset ? peer.reset() : peer.close();
        for (int turn = 0; turn < 2 && size == 6; ++turn)
            EXPECT_EQ(write("x"), -1);
        EXPECT_EQ(log, "");
        ASSERT_TRUE(runUntil([&] { return isOver(); }));
        settle();
        while (log.starts_with("in.bytes in.bytes "))
            log.erase(0, 9);
        EXPECT_EQ(log, expected);
        EXPECT_EQ(received.size(), inputClosed ? 0 : size);
    }
}

TEST_F(SocketStreams, ASlowReaderIsOfferedEverythingBeforeTheEnd) {
    // Nothing new arrives that would bring another event.
    auto peer = connect();
    onBytes = [] {};
    peer.send("0123456789");
    ASSERT_TRUE(runUntil([&] { return log == "in.bytes "; }));
    for (const auto& [size, offered] : {std::pair(0U, ""), {4U, "in.bytes "}, {5U, "in.bytes "}, {1U, ""}}) {
        log.clear();
        EXPECT_EQ(readSome(size), size);
        EXPECT_EQ(log, "") << "nothing is reported inside a call";
        settle();
        EXPECT_EQ(log, offered) << size;
    }
    peer.send("last");
    peer.close();
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(log, "in.bytes in.bytes in.end ");
}

TEST_F(SocketStreams, NothingGrowsForAReaderThatHasStopped) {
    auto peer = connect();
    const std::string flood(1 << 20, 'f');
    onBytes = [] {};
    peer.send("f"); // the rest is read behind it
    ASSERT_TRUE(runUntil([&] { return !log.empty(); }));
    for (int round = 0; round < 200; ++round, QCoreApplication::processEvents())
        peer.sendNow(flood);
    EXPECT_FALSE(QAbstractEventDispatcher::instance()->processEvents({})) << "and nothing spins";
    readAll();
    EXPECT_EQ(received.size(), 65536U);
    onBytes = [this] { readAll(); };
    EXPECT_TRUE(runUntil([&] { return received.size() > 65536; })) << "a reader that is back gets the rest";
}

TEST_F(SocketStreams, NothingIsKeptForAPeerThatDoesNotRead) {
    auto peer = connect();
    const std::string command(4096, 'c');
    std::size_t taken = 0;
    std::ptrdiff_t count = 1;
    for (; count > 0 && taken < 100'000'000; taken += static_cast<std::size_t>(count))
        ASSERT_GE(count = write(command), 0);
    EXPECT_EQ(count, 0);
    settle();
    EXPECT_EQ(log, "");
    ASSERT_TRUE(runUntil([&] { return peer.received().size() == taken && !log.empty(); }));
    settle();
    EXPECT_EQ(log, "out.space ");
    EXPECT_EQ(write("fresh"), 5);
    release();
    EXPECT_TRUE(peer.receives("freshFIN", taken));
}

// Another pair at once, as after an error, is likely to take the very memory: it must be told nothing of the old one.
TEST_F(SocketStreams, ADelegateMayReplaceTheStreamsInsideAnyEvent) {
    const SilentHost silent;
    const int before = openSockets();
    for (const std::string event :
         {"in.open ", "out.open ", "in.bytes ", "in.end ", "in.error ", "out.space "}) {
        bool isReplaced = false;
        onEvent = [&] {
            if (isReplaced || last != event)
                return;
            isReplaced = true;
            release();
            log.clear();
            open(factory, "127.0.0.1", silent.port());
        };
        onBytes = [&] { event != "in.bytes " ? readAll() : void(); };
        open(factory, "127.0.0.1", listener.port());
        auto peer = listener.accept();
        ASSERT_TRUE(runUntil([&] { return isReplaced || last == "out.open "; }));
        while (event == "out.space " && write(std::string(65536, 'x')) > 0)
            ;
        if (event.starts_with("in.") && !isReplaced) {
            peer.send("bytes");
            event == "in.error " ? peer.reset() : event == "in.end " ? peer.close() : void();
        }
        ASSERT_TRUE(runUntil([&] {
            return isReplaced || (event == "out.space " && peer.received().empty());
        })) << event;
        settle();
        EXPECT_EQ(log, "") << event;
        peer.close();
        release();
        EXPECT_EQ(openSockets(), before) << event;
    }
}

TEST_F(SocketStreams, EventsWaitForADelegateAndASchedule) {
    pair = factory.createPair("127.0.0.1", listener.port());
    pair.input->open();
    pair.output->open();
    auto peer = listener.accept();
    peer.send("early");
    peer.close();
    const std::tuple<std::function<void()>, const char*> steps[] = {
        {[&] { pair.output->setDelegate(this); }, ""},
        {[&] { pair.output->scheduleOnMainQueue(); }, "out.open "},
        {[&] { pair.input->scheduleOnMainQueue(); }, ""},
        {[&] { pair.input->removeFromMainQueue(), pair.input->setDelegate(this); }, ""},
        {[&] { pair.input->setDelegate(nullptr), pair.input->scheduleOnMainQueue(); }, ""},
        {[&] { pair.input->setDelegate(this); }, "in.open in.bytes in.end "}};
    for (const auto& [step, events] : steps) {
        step();
        EXPECT_EQ(log, "") << "nothing is reported inside a call";
        settle();
        EXPECT_EQ(std::exchange(log, ""), events);
    }
    EXPECT_EQ(received, "early");
}

TEST_F(SocketStreams, ALastCommandArrivesAlthoughBytesWereLeftUnread) {
    auto peer = connect();
    peer.send(std::string(3000, 'r'));
    ASSERT_TRUE(runUntil([&] { return received.size() == 3000; }));
    peer.send(std::string(3000, 'r')); // in the system's buffer, and never read
    EXPECT_EQ(write("[U1MZM1,1]"), 10);
    pair.input->close();
    EXPECT_EQ(write("!"), 1) << "one direction is still open";
    pair.output->close();
    EXPECT_EQ(write("!"), -1);
    EXPECT_TRUE(peer.receives("[U1MZM1,1]!FIN"));
}

} // namespace lumbra::test
