// Plays every trace of this folder to the whole application on virtual time: the unit's bytes and what became of the
// link come from the trace, and what the application sends and opens must be what it sent and opened in the trace.

#include "system/Trace.h"

#include "Remote.h"
#include "app/Settings.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace lumbra::test {

using Kind = TraceEntry::Kind;

class Player {
public:
    explicit Player(const Trace& trace)
        : entries_(trace.entries),
          remote_(trace.start.options.find("--keep-connected") == std::string::npos ? Reconnection::ByUser
                                                                                    : Reconnection::Automatic,
                  stored(trace.start.settings)) {
        // What the program closes when it ends is no business of the application.
        while (!entries_.empty() && entries_.back().kind == Kind::Closed)
            entries_.pop_back();
    }

    /// What went wrong first, or an empty text.
    std::string play() {
        remote_.launch(false);
        for (const auto& entry : entries_) {
            const auto due = entry.time - entries_.front().time;
            remote_.queue.advance(std::max<std::chrono::nanoseconds>(due - remote_.queue.now(), {}));
            remote_.settle();
            if (const auto problem = play(entry); !problem.empty())
                return "line " + std::to_string(entry.line) + ": " + problem;
            remote_.settle();
        }
        for (std::size_t link = 0; link < remote_.streams.created(); ++link)
            if (const auto& writes = remote_.streams.pair(link).writes; !writes.empty())
                return "behind the end, link " + std::to_string(link + 1) + " sent " + writes.front();
        return remote_.streams.created() == attempts_ ? "" : "behind the end there is an attempt more";
    }

private:
    static MemorySettingsStore stored(const QJsonObject& settings) {
        MemorySettingsStore store;
        for (auto setting = settings.begin(); setting != settings.end(); ++setting)
            store.setValue(setting.key().toStdString(), setting->isBool()
                                                            ? SettingValue(setting->toBool())
                                                            : std::int64_t{setting->toInteger()});
        if (!settings.isEmpty()) // the address is not traced
            store.setValue(IP_ADDRESS_PREFERENCE, "192.168.1.50");
        return store;
    }
    std::string play(const TraceEntry& entry) {
        if (entry.kind == Kind::Step)
            return remote_.play(entry.text);
        const auto place = static_cast<std::size_t>(entry.link) - 1;
        if (place >= remote_.streams.created())
            return "there is no attempt";
        auto& pair = remote_.streams.pair(place);
        const auto offered = [](bool heard) { return heard ? "" : "the application does not listen"; };
        switch (entry.kind) {
        case Kind::Attempt:
            ++attempts_;
            for (const auto& later : entries_)
                if (later.link == entry.link && later.kind == Kind::Sent)
                    pair.writeResults.push_back(
                        later.failed ? -1 : static_cast<std::ptrdiff_t>(later.text.size()));
            return "";
        case Kind::Opened:
            pair.connect();
            return "";
        case Kind::Error:
            return offered(pair.fireInput(StreamEvent::ErrorOccurred));
        case Kind::End:
            return offered(pair.fireInput(StreamEvent::EndEncountered));
        case Kind::Closed:
            return pair.live() == 0 ? "" : "the link is not closed";
        case Kind::Received:
            return offered(pair.feed(entry.text));
        default:
            return sent(entry, pair.writes);
        }
    }
    static std::string sent(const TraceEntry& entry, std::vector<std::string>& writes) {
        if (writes.empty())
            return "nothing is sent where the trace has " + entry.text + ". Did the user do something?";
        const auto write = writes.front();
        writes.erase(writes.begin());
        return write == entry.text + entry.notSent ? "" : "expected " + entry.text + ", got " + write;
    }

    std::vector<TraceEntry> entries_;
    Remote remote_;
    std::size_t attempts_ = 0;
};

TEST(Traces, AreWhatTheApplicationDoes) {
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator(LUMBRA_TRACES)) {
        if (file.path().extension() != ".jsonl")
            continue;
        ++count;
        const auto trace = readTrace(file.path());
        const auto* problem = std::get_if<std::string>(&trace);
        EXPECT_EQ(problem ? *problem : Player(std::get<Trace>(trace)).play(), "") << file.path();
    }
    EXPECT_GT(count, 0);
}

} // namespace lumbra::test
