#include "Limited.h"
#include "ManualQueue.h"
#include "Process.h"
#include "ScriptedStreams.h"
#include "system/TracingStreamFactory.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>

namespace lumbra::test {

using namespace std::string_literals;

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
    ::chmod((folder / "old").c_str(), 0666);
    const TraceFile first(queue, folder / "old", {});
    EXPECT_EQ(std::filesystem::status(folder / "old").permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(first.error() + std::to_string(std::filesystem::file_size(folder / "old")), "0");
    EXPECT_NE(error("old").find("another program"), std::string::npos);
}

TEST(Trace, KeepsWholeLinesOnAFullDisk) {
    const Folder folder;
    ManualQueue queue;
    std::string told;
    std::signal(SIGXFSZ, SIG_IGN);
    const Limited disk(RLIMIT_FSIZE, 400);
    TraceFile file(queue, folder / "full", [&](const std::string& sentence) { told += sentence; });
    file.start({});
    for (int link = 1; link < 20; ++link) {
        file.add({.kind = TraceEntry::Kind::Attempt, .link = link, .text = "a", .port = 23});
        queue.runTurn();
    }
    EXPECT_EQ(told, "The trace in " + (folder / "full") + " ends here: File too large.");
    ScriptedStreamFactory scripted;
    scripted.fails = true;
    const auto none = TracingStreamFactory(scripted, file).createPair("a", 1);
    EXPECT_FALSE(none.input || none.output);
    std::ifstream text(folder / "full");
    const std::string all(std::istreambuf_iterator<char>(text), {});
    EXPECT_TRUE(all.size() > 200 && all.ends_with("}\n")) << all;
}

// Bytes above 0x7E take six times their room.
TEST(Trace, EndsAtItsLimitWithALineThatSaysSo) {
    const Folder folder;
    ManualQueue queue;
    std::string told;
    TraceFile file(
        queue, folder / "full", [&](const std::string& sentence) { told += sentence; }, 1);
    file.start({});
    file.add({.kind = TraceEntry::Kind::Attempt, .link = 1, .text = "a", .port = 23});
    for (int turn = 0; turn < 20; ++turn) {
        for (int count = 0; count < 50; ++count)
            file.add({.kind = TraceEntry::Kind::Received, .link = 1, .text = std::string(256, '\xff')});
        queue.runTurn();
    }
    EXPECT_EQ(told, "The trace in " + (folder / "full") + " ends here: it has reached its limit of 1 MiB.");
    const auto size = std::filesystem::file_size(folder / "full");
    EXPECT_TRUE(size <= 1 << 20 && size > (1 << 20) - 2000) << size;
    const auto trace = readTrace(folder / "full");
    ASSERT_TRUE(std::holds_alternative<Trace>(trace)) << std::get<std::string>(trace);
    EXPECT_EQ(std::get<Trace>(trace).entries.back().kind, TraceEntry::Kind::Full);
}

TEST(Trace, WhatIsNoneIsToldWithItsLine) {
    const auto attempt = R"({"time":1,"link":1,"event":"attempt","host":"a","port":1})"s;
    const std::pair<std::string, const char*> lines[] = {
        {"", "no JSON object"},
        {R"({"link":1,"event":"opened"})", "no \"time\""},
        {R"({"time":0.9,"link":1,"event":"opened"})", "earlier"},
        {R"({"time":1,"event":"opened"})", "no \"link\""},
        {R"({"time":1,"link":2,"sent":"a"})", "no attempt is known"},
        {R"({"time":1,"link":1,"event":"f\u001b\u009b\u202e\n"})", R"("f\x1B\xC2\x9B\xE2\x80\xAE\x0A")"},
        {R"({"time":1,"link":1,"event":")" + std::string(1'000'000, 'f') + "\"}", "fff... (1000000 bytes)"},
        {R"({"time":1e9,"link":1,"event":"opened"})", "1000000000 seconds or more"},
        {R"({"time":1,"link":2,"event":"attempt","host":"a"})", "\"port\""},
        {attempt, "again"},
        {R"({"time":1,"link":1})", "has not one of"},
        {R"({"time":1,"link":1,"sent":"a","received":"a"})", "has not one of"},
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
    const auto whole = parse(formatTraceEntry({.kind = TraceEntry::Kind::Attempt,
                                               .link = 2,
                                               .text = "caf\u00e9 \U0001f3b5",
                                               .port = 80,
                                               .time = std::chrono::seconds(1)}));
    EXPECT_EQ(std::get<Trace>(whole).entries.back().text, "caf\u00e9 \U0001f3b5");
    for (const auto* start : {"", "{}\n", "{\"trace\":2}\n"})
        EXPECT_TRUE(std::holds_alternative<std::string>(parseTrace(start))) << start;
}

} // namespace lumbra::test
