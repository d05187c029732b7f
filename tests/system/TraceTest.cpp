#include "ManualQueue.h"
#include "Process.h"
#include "ScriptedStreams.h"
#include "system/TracingStreamFactory.h"

#include <gtest/gtest.h>

#include <bit>
#include <fstream>

namespace lumbra::test {

using namespace std::string_literals;

/// Uses a pair as the application does, and notes all that it sees.
class User final : public StreamDelegate {
public:
    std::string use(StreamFactory& factory, ScriptedStreamFactory& scripted, StreamEvent last) {
        pair_ = factory.createPair("caf\u00e9.example", 23);
        for (Stream* stream : std::initializer_list<Stream*>{pair_.input.get(), pair_.output.get()}) {
            stream->setDelegate(this);
            stream->open();
            stream->scheduleOnMainQueue();
        }
        auto& link = scripted.last();
        link.connect();
        link.writeResults = {5, 0, -1};
        for (const auto& text : {"[U1Z1\xe9]"s, "[a]"s, "[b]"s, "[c]"s})
            log_ += std::to_string(pair_.output->write(
                        {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()})) +
                    " ";
        link.fireOutput(StreamEvent::HasSpaceAvailable);
        link.feed("(\"\\\0\x1f\x7f\xff\n)\x80~"s);
        link.fireInput(last);
        log_ += "still there: " + std::to_string(link.live()) + " ";
        for (const auto& call : link.calls)
            log_ += call + " ";
        return log_;
    }
    void handleEvent(Stream& stream, StreamEvent event) override {
        log_ += &stream == pair_.output.get() ? "out." : &stream == pair_.input.get() ? "in." : "?";
        log_ += std::to_string(std::countr_zero(static_cast<unsigned>(event))) + " ";
        if (event == StreamEvent::HasBytesAvailable)
            while (pair_.input->hasBytesAvailable()) {
                std::array<std::uint8_t, 4> buffer{};
                const auto count = pair_.input->read(buffer);
                log_ += std::to_string(count) + ":" + std::string(buffer.begin(), buffer.end()) + " ";
            }
        if (event == StreamEvent::ErrorOccurred || event == StreamEvent::EndEncountered)
            pair_ = {}; // inside the event, as the contract allows
    }

private:
    StreamPair pair_;
    std::string log_;
};

std::string told(const Trace& trace) {
    static constexpr const char* NAMES[] = {"attempt", "opened", "error",   "end",
                                            "closed",  "sent",   "received"};
    std::string all;
    for (const auto& entry : trace.entries)
        all += std::to_string(entry.link) + " " + NAMES[static_cast<int>(entry.kind)] + " " + entry.text +
               "|" + entry.notSent + (entry.failed ? "!" : "") + "\n";
    return all;
}

TEST(Trace, ChangesNothingAndGivesTheBytesBack) {
    const Folder folder;
    for (const auto& path : {folder / "a.jsonl", "/dev/full"s}) {
        for (const auto last : {StreamEvent::EndEncountered, StreamEvent::ErrorOccurred}) {
            ManualQueue queue;
            ScriptedStreamFactory scripted;
            std::string reported;
            {
                TraceFile file(queue, path, [&](const std::string& sentence) { reported += sentence; });
                ASSERT_EQ(file.error(), "");
                file.start({"--json", {{QStringLiteral("unit"), 2}}});
                TracingStreamFactory traced(scripted, file);
                EXPECT_EQ(User().use(traced, scripted, last), User().use(scripted, scripted, last));
                queue.runTurn();
                EXPECT_EQ(queue.runTurn(), 0U);
                scripted.withoutInput = true;
                traced.createPair("b", 1);
            }
            if (path == "/dev/full") {
                EXPECT_EQ(reported, "The trace in /dev/full ends here: No space left on device.");
                continue;
            }
            const auto trace = readTrace(path);
            ASSERT_TRUE(std::holds_alternative<Trace>(trace)) << std::get<std::string>(trace);
            EXPECT_EQ(
                told(std::get<Trace>(trace)),
                "1 attempt caf\u00e9.example|\n1 opened |\n1 sent [U1Z1|\xe9]\n1 sent |[a]\n1 sent |[b]!\n"
                "1 sent [c]|\n1 received (\"\\\0|\n1 received \x1f\x7f\xff\n|\n1 received )\x80~|\n"s +
                    (last == StreamEvent::EndEncountered ? "1 end" : "1 error") +
                    " |\n1 closed |\n2 attempt b|\n2 closed |\n");
            EXPECT_EQ(std::get<Trace>(trace).start.settings.value(QLatin1String("unit")).toInt(), 2);
        }
    }
}

TEST(Trace, TakesNothingAwayThatIsNoTrace) {
    const Folder folder;
    ManualQueue queue;
    const auto error = [&](const char* name) { return TraceFile(queue, folder / name, {}).error(); };
    std::ofstream(folder / "settings") << R"({"trace_me":1})";
    EXPECT_NE(error("settings").find("holds something other than a trace"), std::string::npos);
    EXPECT_EQ(std::filesystem::file_size(folder / "settings"), 14U);
    EXPECT_NE(error("").find("Is a directory"), std::string::npos);
    std::ofstream(folder / "old") << R"({"trace":1})"
                                  << "\n";
    const TraceFile first(queue, folder / "old", {});
    EXPECT_EQ(first.error(), "");
    EXPECT_NE(error("old").find("another program"), std::string::npos);
}

TEST(Trace, WhatIsNoneIsToldWithItsLine) {
    const auto attempt = R"({"time":1,"link":1,"event":"attempt","host":"a","port":23})"s;
    const std::pair<std::string, const char*> lines[] = {
        {"", "no JSON object"},
        {"[1]", "no JSON object"},
        {R"({"link":1,"event":"opened"})", "no \"time\""},
        {R"({"time":0.9,"link":1,"event":"opened"})", "earlier"},
        {R"({"time":1,"event":"opened"})", "no \"link\""},
        {R"({"time":1,"link":2,"sent":"a"})", "no attempt is known"},
        {R"({"time":1,"link":1,"event":"flown"})", "\"flown\""},
        {R"({"time":1,"link":2,"event":"attempt","host":"a"})", "\"port\""},
        {attempt, "again"},
        {R"({"time":1,"link":1})", "has not one of"},
        {R"({"time":1,"link":1,"sent":"a","received":"a"})", "has not one of"},
        {R"({"time":1,"link":1,"sent":1})", "no text"},
        {R"({"time":1,"link":1,"received":"\u0100"})", "no text"},
    };
    const auto parse = [&](const std::string& line) {
        return parseTrace(QByteArray::fromStdString("{\"trace\":1}\n" + attempt + "\n" + line));
    };
    for (const auto& [line, says] : lines) {
        const auto result = parse(line + "\n");
        const auto* sentence = std::get_if<std::string>(&result);
        ASSERT_TRUE(sentence) << line;
        EXPECT_TRUE(sentence->starts_with("Line 3 ") && sentence->find(says) != std::string::npos)
            << *sentence;
        EXPECT_TRUE(std::holds_alternative<Trace>(parse(line))) << "a last line that is cut short: " << line;
    }
    for (const auto* start : {"", "{}\n", "{\"trace\":2}\n"})
        EXPECT_TRUE(std::holds_alternative<std::string>(parseTrace(start))) << start;
}

} // namespace lumbra::test
