// Plays every trace of this folder to the whole application on virtual time: the unit's bytes and what became of the
// link come from the trace, and what the application sends and opens must be what it sent and opened in the trace.
// This is traced in turn, and must give the same trace again.

#include "Process.h"
#include "Remote.h"
#include "app/Settings.h"
#include "system/TracingStreamFactory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace lumbra::test {

using Kind = TraceEntry::Kind;

class Player {
public:
    Player(const Trace& trace, const std::string& path)
        : entries_(trace.entries),
          file_(writes_, path, {}),
          remote_(trace.start.options.find("--keep-connected") == std::string::npos ? Reconnection::ByUser
                                                                                    : Reconnection::Automatic,
                  stored(trace.start.settings), [this](StreamFactory& streams) -> StreamFactory& {
                      return traced_.emplace(streams, file_);
                  }) {
        file_.start(trace.start);
        // What the program closes when it ends is no business of the application.
        while (!entries_.empty() &&
               (entries_.back().kind == Kind::Closed || entries_.back().kind == Kind::Full))
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
    static MemorySettingsStore stored(const decltype(TraceStart::settings)& settings) {
        MemorySettingsStore store;
        for (const auto& [key, value] : settings)
            store.setValue(key, value);
        if (!settings.empty()) // the address is not traced
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
    ManualQueue writes_;
    TraceFile file_;
    std::optional<TracingStreamFactory> traced_;
    Remote remote_;
    std::size_t attempts_ = 0;
};

/// What the network did, and what the application did, which may be a moment earlier here.
std::pair<std::string, std::string> told(std::span<const TraceEntry> entries) {
    std::pair<std::string, std::string> all;
    for (const auto& entry : entries)
        if (const auto kind = entry.kind; kind != Kind::Step && kind != Kind::Closed) {
            auto& text = kind == Kind::Sent || kind == Kind::Attempt ? all.second : all.first;
            text += std::to_string(entry.link) + " " + std::to_string(static_cast<int>(kind)) + " " +
                    (kind == Kind::Attempt ? "" : entry.text) + "|" + entry.notSent +
                    (entry.failed ? "!\n" : "\n");
        }
    return all;
}

TEST(Traces, AreWhatTheApplicationDoes) {
    const Folder folder;
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator(LUMBRA_TRACES)) {
        if (file.path().extension() != ".jsonl")
            continue;
        SCOPED_TRACE(file.path());
        const auto again = folder / std::to_string(++count).c_str();
        const auto trace = readTrace(file.path());
        const auto* problem = std::get_if<std::string>(&trace);
        ASSERT_EQ(problem ? *problem : Player(std::get<Trace>(trace), again).play(), "");
        const auto traced = readTrace(again);
        ASSERT_TRUE(std::holds_alternative<Trace>(traced)) << std::get<std::string>(traced);
        EXPECT_EQ(told(std::get<Trace>(traced).entries), told(std::get<Trace>(trace).entries));
    }
    EXPECT_GT(count, 0);
}

} // namespace lumbra::test
