#include "qt/FileSettingsStore.h"

#include "ManualQueue.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <stdlib.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace lumbra {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

void put(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class FileSettings : public ::testing::Test {
public:
    FileSettings() {
        std::string name = fs::temp_directory_path() / "lumbra-settings-XXXXXX";
        folder = ::mkdtemp(name.data());
        file = folder / "settings.json";
    }
    ~FileSettings() override { fs::remove_all(folder); }

protected:
    FileSettingsStore store() {
        return FileSettingsStore(queue, file.string(),
                                 [this](const auto& sentence) { told.push_back(sentence); });
    }
    /// The names in the folder, sorted and joined.
    std::string names() const {
        std::set<std::string> sorted;
        for (const auto& entry : fs::directory_iterator(folder))
            sorted.insert(entry.path().filename().string());
        std::string joined;
        for (const auto& name : sorted)
            joined += name + " ";
        return joined;
    }

    ManualQueue queue;
    fs::path folder;
    fs::path file;
    std::vector<std::string> told;
};

TEST_F(FileSettings, ValuesKeepTheirTypesAcrossRuns) {
    {
        auto settings = store();
        EXPECT_EQ(settings.value("absent"), std::nullopt);
        settings.setValue("text", std::string("Küche \"1\"\n"));
        settings.setValue("digits", std::string("4"));
        settings.setValue("number", std::int64_t{-9007199254740993}); // beyond what a double can hold
        settings.setValue("flag", true);
        settings.setValue("gone", true);
        settings.remove("gone");
        EXPECT_EQ(settings.integer("number"), -9007199254740993);
        EXPECT_FALSE(fs::exists(file)) << "not before its time";
        queue.advance(199ms);
        EXPECT_FALSE(fs::exists(file));
        queue.advance(1ms);
        EXPECT_EQ(names(), "settings.json ");
        settings.setValue("flag", false); // written by the destructor
    }
    auto settings = store();
    EXPECT_EQ(settings.value("text"), SettingValue(std::string("Küche \"1\"\n")));
    EXPECT_EQ(settings.value("digits"), SettingValue(std::string("4")));
    EXPECT_EQ(settings.value("number"), SettingValue(std::int64_t{-9007199254740993}));
    EXPECT_EQ(settings.value("flag"), SettingValue(false));
    EXPECT_EQ(settings.value("gone"), std::nullopt);
    EXPECT_TRUE(told.empty());
}

TEST_F(FileSettings, ReadsWhatOthersWroteAndKeepsWhatItDoesNotKnow) {
    put(file,
        R"({"fraction": 1.5, "whole": 3.0, "null": null, "list": [1, {"a": 2}], "object": {"x": 1e3}, "key": 7})");
    auto settings = store();
    EXPECT_EQ(settings.value("fraction"), SettingValue(std::string("1.5")));
    EXPECT_EQ(settings.value("whole"), SettingValue(std::int64_t{3}));
    for (const auto* key : {"null", "list", "object"})
        EXPECT_EQ(settings.value(key), std::nullopt) << key;
    settings.setValue("key", std::int64_t{8});
    settings.flush();
    const auto text = contents(file);
    for (const auto* part : {"\"fraction\": 1.5", "\"null\": null", "\"a\": 2", "\"x\": 1000", "\"key\": 8"})
        EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
}

TEST_F(FileSettings, WritesNothingWhereNothingDiffers) {
    put(file, R"({ "unit": 2 })");
    auto settings = store();
    settings.setValue("unit", std::int64_t{2});
    settings.remove("absent");
    EXPECT_EQ(queue.delayed(), 0U);
    settings.setValue("unit", std::int64_t{3});
    settings.setValue("unit", std::int64_t{2});
    EXPECT_EQ(queue.delayed(), 1U) << "one write for any number of changes";
    queue.advance(1s);
    EXPECT_EQ(contents(file), R"({ "unit": 2 })");
    settings.setValue("unit", std::string("2"));
    settings.flush();
    EXPECT_NE(contents(file).find("\"2\""), std::string::npos) << "another type is another value";
}

TEST_F(FileSettings, AnUnreadableFileIsSetAsideAndNeverOverwritten) {
    const struct {
        std::string name, text;
        bool readable;
    } cases[] = {
        {"empty", "", true},
        {"blank", " \n", true},
        {"an empty object", "{}", true},
        {"torn", R"({"unit": 4, "ip)", false},
        {"another format", "[General]\nunit=4\n", false},
        {"a list", "[1]", false},
        {"binary", std::string("\0\x01\xff", 3), false},
        {"huge", std::string(FileSettingsStore::MAX_FILE_SIZE + 1, ' '), false},
    };
    int setAside = 0;
    for (const auto& [name, text, readable] : cases) {
        put(file, text);
        told.clear();
        auto settings = store();
        EXPECT_EQ(settings.value("unit"), std::nullopt) << name;
        settings.setValue("unit", std::int64_t{1});
        settings.flush();
        EXPECT_EQ(store().integer("unit"), 1) << name;
        ASSERT_EQ(told.size(), readable ? 0U : 1U) << name;
        if (readable)
            continue;
        const auto aside = file.string() + ".unreadable-" + std::to_string(++setAside);
        EXPECT_EQ(contents(aside), text) << name;
        EXPECT_NE(told[0].find(aside), std::string::npos) << told[0];
    }
    EXPECT_EQ(contents(file.string() + ".unreadable-1"), cases[3].text) << "the first one is still there";
}

TEST_F(FileSettings, WhatCanNotBeSetAsideIsLeftAloneAndTheRunGoesOnInMemory) {
    fs::create_directory(file);
    put(file / "precious", "x");
    {
        auto settings = store();
        settings.setValue("unit", std::int64_t{2});
        queue.advance(1s);
        settings.flush();
        EXPECT_EQ(settings.integer("unit"), 2);
    }
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(names(), "settings.json ");
    EXPECT_EQ(contents(file / "precious"), "x");
}

TEST_F(FileSettings, AFileThatBreaksDuringTheRunCostsNeitherSide) {
    auto settings = store();
    settings.setValue("unit", std::int64_t{2});
    settings.flush();
    put(file, "{ half an ed"); // somebody's editor
    EXPECT_EQ(settings.integer("unit"), 2);
    EXPECT_TRUE(told.empty());
    put(file, R"({"unit": 3, "more": 1})");
    EXPECT_EQ(settings.integer("unit"), 3);
    put(file, "{ broken for go");
    settings.setValue("polling", true);
    settings.remove("more");
    settings.flush();
    EXPECT_EQ(contents(file.string() + ".unreadable-1"), "{ broken for go");
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(store().integer("unit"), 3);
    EXPECT_TRUE(store().flag("polling"));
    EXPECT_EQ(store().value("more"), std::nullopt);
    fs::remove(file);
    EXPECT_EQ(settings.value("unit"), std::nullopt);
}

TEST_F(FileSettings, AFailedWriteKeepsTheOldFileAndIsToldOnce) {
    auto settings = store();
    settings.setValue("start", std::int64_t{1});
    settings.flush();
    const auto before = contents(file);

    // As on a full disk: the system takes no more than ten bytes.
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit tight{10, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    settings.setValue("start", std::int64_t{2});
    settings.flush();
    queue.advance(1s);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(contents(file), before);
    EXPECT_EQ(names(), "settings.json ") << "and no temporary file";
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find(file.string() + " (File too large)"), std::string::npos) << told[0];
    EXPECT_EQ(settings.integer("start"), 2);
    settings.flush();
    EXPECT_EQ(store().integer("start"), 2);
}

TEST_F(FileSettings, MakesItsFolderOrTellsWhyNot) {
    const auto home = folder;
    file = home / "a" / "b" / "settings.json";
    store().setValue("unit", std::int64_t{1});
    EXPECT_EQ(store().integer("unit"), 1);
    put(home / "plain", "");
    file = home / "plain" / "settings.json";
    store().setValue("unit", std::int64_t{1});
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(FileSettings, FollowsALinkToItsFile) {
    fs::create_directory(folder / "synced");
    put(folder / "synced" / "real.json", R"({"unit": 2})");
    fs::create_symlink("synced/real.json", file);
    store().setValue("unit", std::int64_t{3});
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_NE(contents(folder / "synced" / "real.json").find('3'), std::string::npos);
}

TEST_F(FileSettings, SweepsOnlyTheTemporaryFilesOfItsOwnWrites) {
    for (const auto* name :
         {"settings.json.LfumDL", "settings.json.aBcdef", "settings.json.backup", "settings.json.Backup",
          "settings.json.BACKUP", "settings.json.aB1def", "settings.json.aBcdefg", "settings.jsonXaBcdef",
          "other.json.LfumDL", "settings.json"})
        put(folder / name, "{}");
    store();
    EXPECT_EQ(names(),
              "other.json.LfumDL settings.json settings.json.BACKUP settings.json.Backup "
              "settings.json.aB1def settings.json.aBcdefg settings.json.backup settings.jsonXaBcdef ");
}

TEST_F(FileSettings, TwoProgramsSeeAndKeepEachOthersChanges) {
    auto one = store();
    auto two = store();
    one.setValue("unit", std::int64_t{1});
    one.setValue("polling", true);
    one.flush();
    EXPECT_EQ(two.integer("unit"), 1);
    two.setValue("unit", std::int64_t{2});
    one.setValue("serial", true);
    one.flush();
    two.flush();
    for (auto* settings : {&one, &two}) {
        EXPECT_EQ(settings->integer("unit"), 2);
        EXPECT_TRUE(settings->flag("polling"));
        EXPECT_TRUE(settings->flag("serial"));
    }

    // And at the very same time: without a lock one program's write undoes the other's.
    constexpr int CHANGES = 50;
    std::vector<pid_t> children;
    for (const auto* name : {"first-", "second-"}) {
        children.push_back(::fork());
        if (children.back() == 0) {
            auto mine = store();
            for (int change = 0; change < CHANGES; ++change) {
                mine.setValue(name + std::to_string(change), true);
                mine.flush();
                ::usleep(500); // lets the other one in
            }
            ::_exit(0);
        }
    }
    for (const auto child : children)
        ::waitpid(child, nullptr, 0);
    for (int change = 0; change < CHANGES; ++change)
        for (const auto* name : {"first-", "second-"})
            EXPECT_TRUE(one.flag(name + std::to_string(change))) << name << change;
}

TEST_F(FileSettings, IsWholeAfterAKillAtAnyMoment) {
    for (int round = 0; round < 40; ++round) {
        int written[2];
        ASSERT_EQ(::pipe(written), 0);
        const auto child = ::fork();
        if (child == 0) {
            auto settings = store();
            for (std::int64_t number = 0;; ++number) {
                settings.setValue("text", std::string(3000, static_cast<char>('a' + number % 26)));
                settings.setValue("number", number % 26);
                settings.flush();
                if (number == 0 && ::write(written[1], "", 1) != 1)
                    ::_exit(1);
            }
        }
        char byte = 0;
        ASSERT_EQ(::read(written[0], &byte, 1), 1);
        ::usleep(static_cast<useconds_t>(round * 137)); // spreads the kills over the steps of a write
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(written[0]);
        ::close(written[1]);
        auto settings = store();
        EXPECT_EQ(settings.text("text"),
                  std::string(3000, static_cast<char>('a' + settings.integer("number"))));
    }
    EXPECT_TRUE(told.empty());
}

} // namespace
} // namespace lumbra
