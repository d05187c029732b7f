#include "EventLoop.h"
#include "system/QtDescriptorWatcher.h"
#include "system/QtMainQueue.h"
#include "system/SignalPipe.h"
#include "system/ThreadWorker.h"

#include <QAbstractEventDispatcher>
#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <future>
#include <sys/mman.h>
#include <thread>

namespace lumbra::test {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

TEST(QtMainQueue, WorkThatPostsItselfLeavesRoomForDescriptorsAndTimers) {
    QtMainQueue queue;
    QtDescriptorWatcher watcher;
    const int readable = ::memfd_create("empty", MFD_CLOEXEC);
    bool read = false, timed = false;
    const auto watch = watcher.watchReadable(readable, [&] { read = true; });
    queue.postAfter(0ns, [&] { timed = true; });
    long rounds = 0;
    std::function<void()> again = [&] {
        if (++rounds < 1000 && !(read && timed))
            queue.post(again);
    };
    queue.post(again);
    ASSERT_TRUE(runUntil([&] { return (read && timed) || rounds == 1000; }));
    EXPECT_LT(rounds, 1000);
    ::close(readable);
}

TEST(QtMainQueue, WorkOfOtherThreadsRunsOnTheMainThreadInTheOrderOfEach) {
    constexpr std::size_t THREADS = 4, PIECES = 2000;
    QtMainQueue queue;
    std::vector<std::size_t> ran(THREADS);
    const auto mainThread = std::this_thread::get_id();
    std::vector<std::jthread> threads;
    for (std::size_t thread = 0; thread < THREADS; ++thread)
        threads.emplace_back([&, thread] {
            for (std::size_t piece = 0; piece < PIECES; ++piece)
                queue.post([&, thread, piece] {
                    EXPECT_EQ(std::this_thread::get_id(), mainThread);
                    EXPECT_EQ(ran[thread]++, piece);
                });
        });
    EXPECT_TRUE(runUntil([&] { return ran == std::vector(THREADS, PIECES); }));
}

TEST(QtMainQueue, DelayedWorkIsNeverEarlyAndRunsByTimeThenByCall) {
    QtMainQueue queue;
    std::string order;
    for (const auto& [name, delay] : std::initializer_list<std::pair<char, std::chrono::nanoseconds>>{
             {'e', 4ms}, {'f', 4ms + 1us}, {'c', 2500us}, {'d', 2500us + 1ns}, {'a', -5s}, {'b', 0ns}})
        queue.postAfter(delay, [&, name = name, due = Clock::now() + delay] {
            EXPECT_GE(Clock::now(), due) << name;
            order += name;
        });
    queue.postAfter(std::chrono::nanoseconds::max(), [&] { order += '!'; });
    queue.postAfter(3ms, [&] { queue.postAfter(10ms, [&] { order += 'g'; }); });
    EXPECT_EQ(order, "");
    ASSERT_TRUE(runUntil([&] { return order.size() >= 7; }));
    EXPECT_EQ(order, "abcdefg");
    settle();
    EXPECT_FALSE(QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) << "idle";
}

TEST(QtMainQueue, DropsWorkAndWhatItHoldsWhenDestroyed) {
    const auto held = std::make_shared<int>(0);
    {
        QtMainQueue queue;
        for (const bool isDropped : {true, false}) {
            queue.post([held] { ADD_FAILURE(); });
            queue.postAfter(0ns, [held] { ADD_FAILURE(); });
            if (isDropped)
                queue.drop();
            EXPECT_EQ(held.use_count() == 1, isDropped);
        }
    }
    settle();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(ThreadWorker, RunsInOrderOffTheMainThreadAndWaitsForWorkUnderWay) {
    std::promise<void> begun, goOn;
    std::string order;
    std::jthread release;
    const auto held = std::make_shared<int>(0);
    {
        ThreadWorker worker;
        EXPECT_TRUE(worker.post([&] { order += 'a'; }));
        EXPECT_TRUE(worker.post([&, mainThread = std::this_thread::get_id()] {
            EXPECT_NE(std::this_thread::get_id(), mainThread);
            begun.set_value();
            goOn.get_future().wait();
            order += 'b';
        }));
        EXPECT_TRUE(worker.post([held] {}));
        begun.get_future().wait();
        release = std::jthread([&goOn] { goOn.set_value(); });
    }
    EXPECT_EQ(order, "ab");
    EXPECT_EQ(held.use_count(), 1);
    const ThreadWorker idle; // destroyed without a thread
}

// The first signal reaches the main loop; where the loop no longer runs, the second one ends the process, or the alarm.
TEST(SignalPipe, LeavesTheSecondSignalToTheSystem) {
    const auto run = [](bool alarms) {
        std::signal(SIGHUP, SIG_IGN); // as nohup does
        SignalPipe signals({SIGTERM, SIGINT, SIGHUP}, SignalPipe::Takes::First);
        for (const int first : {SIGHUP, SIGTERM})
            ::raise(first);
        char bytes[2];
        if (::read(signals.descriptor(), bytes, 2) == 1 && bytes[0] == SIGTERM)
            ::raise(SIGHUP), ::raise(alarms && ::alarm(0) > 0 ? SIGALRM : SIGINT);
        ::_exit(0);
    };
    EXPECT_EXIT(run(false), testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(run(true), testing::KilledBySignal(SIGTERM), "");
}

TEST(QtDescriptorWatcher, ReportsPipesAndFiles) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const int file = ::memfd_create("empty", MFD_CLOEXEC); // regular, and needs no folder to write to
    QtDescriptorWatcher watcher;
    for (const auto& [name, fd, ready] :
         {std::tuple("a regular file at its end", file, true), {"an empty pipe", ends[0], false}}) {
        int count = 0;
        const auto watch = watcher.watchReadable(fd, [&] { ++count; });
        for (const bool enabled : {true, false, true}) {
            watch->setEnabled(enabled);
            EXPECT_EQ(std::exchange(count, 0), 0) << name;
            settle();
            EXPECT_EQ(std::exchange(count, 0) > 1, ready && enabled) << name;
        }
    }
    int count = 0;
    std::unique_ptr<DescriptorWatch> watch;
    watch = watcher.watchReadable(ends[0], [&, held = std::string("captures survive their own destruction")] {
        watch.reset();
        EXPECT_EQ(held.size(), 38U);
        ++count;
    });
    ::close(ends[1]);
    EXPECT_TRUE(runUntil([&] { return count == 1; })) << "the end of a pipe is readable";
    settle();
    EXPECT_EQ(count, 1) << "a watch ended inside its own callback";
    ::close(ends[0]);
    ::close(file);
}

} // namespace lumbra::test
