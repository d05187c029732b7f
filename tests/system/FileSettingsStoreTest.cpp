#include "system/FileSettingsStore.h"

#include "Limited.h"
#include "ManualQueue.h"
#include "Process.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>

namespace lumbra::test {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

void put(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

/// What the file holds; JSON without white space.
std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const auto json = QJsonDocument::fromJson(QByteArray::fromStdString(text));
    return json.isNull() ? text : json.toJson(QJsonDocument::Compact).toStdString();
}

struct FileSettings : ::testing::Test {
    FileSettingsStore store() { return {queue, file.string(), report}; }
    Files files() const {
        Files found;
        for (const auto& entry : fs::directory_iterator(folder))
            found[entry.path().filename()] = entry.is_regular_file() ? contents(entry.path()) : "";
        return found;
    }

    ManualQueue queue;
    const Folder temporary;
    const fs::path folder = temporary / "";
    fs::path file = folder / "settings.json";
    std::string told;
    FileSettingsStore::Report report = [this](const std::string& sentence) { told += sentence + "\n"; };
};

TEST_F(FileSettings, ValuesKeepTheirTypesAndUnknownOnesStay) {
    const std::string before = R"({"flag":true,"fraction":1.5,"list":[{"a":null}],"whole":3})";
    put(file, before);
    put(folder / "settings.json.MyCopy", "mine"); // looks like a temporary file of QSaveFile
    {
        auto settings = store();
        EXPECT_EQ(settings.value("fraction"), SettingValue("1.5"));
        EXPECT_EQ(settings.value("whole"), SettingValue(std::int64_t{3}));
        EXPECT_EQ(settings.value("list"), std::nullopt);
        settings.setValue("flag", true);
        EXPECT_EQ(queue.delayed(), 0U) << "nothing differs";
        settings.setValue("number", std::int64_t{-9007199254740993}); // beyond what a double can hold
        settings.setValue("whole", "3");
        queue.advance(199ms);
        EXPECT_EQ(contents(file), before);
        queue.advance(1ms);
        EXPECT_NE(contents(file), before);
        settings.remove("flag");
        settings.setValue("text", "Küche \"1\"\n"); // written by the destructor
    }
    const auto* after = R"({"fraction":1.5,"list":[{"a":null}],"number":-9007199254740993,)"
                        R"("text":"Küche \"1\"\n","whole":"3"})";
    EXPECT_EQ(files(), (Files{{"settings.json", after}, {"settings.json.MyCopy", "mine"}}));
}

// A person may have written any type; what has no plain meaning is as good as absent.
TEST_F(FileSettings, ReadsAPlainMeaningFromAnyType) {
    const std::tuple<const char*, const char*, std::int64_t, bool> cases[] = {
        {R"("-7")", "-7", -7, false},  {R"("7 ")", "7 ", 0, false},
        {R"("0x7")", "0x7", 0, false}, {R"("true")", "true", 0, true},
        {"7", "7", 7, true},           {"true", "absent", 1, true},
        {"false", "absent", 0, false}, {"7.5", "7.5", 0, false},
        {"[7]", "absent", 0, false},   {R"("9223372036854775808")", "9223372036854775808", 0, false}};
    for (const auto& [stored, text, integer, flag] : cases) {
        put(file, std::string(R"({"key":)") + stored + "}");
        const auto settings = store();
        EXPECT_EQ(settings.text("key").value_or("absent"), text) << stored;
        EXPECT_EQ(std::pair(settings.integer("key"), settings.flag("key")), std::pair(integer, flag))
            << stored;
    }
}

TEST_F(FileSettings, OnlyWrongContentIsSetAside) {
    put(folder / "settings.json.unreadable-1", "taken");
    fs::create_symlink("nowhere", folder / "settings.json.unreadable-2");
    for (const std::string text : {"", "\xEF\xBB\xBF{}"}) {
        put(file, text);
        store().setValue("unit", std::int64_t{1});
        EXPECT_EQ(contents(file) + told, R"({"unit":1})");
    }
    const auto sentence = [&](const std::string& reason, const std::string& aside) {
        return "The settings in " + file.string() + " can't be read (" + reason +
               "); the file was renamed to " + aside + ".\n";
    };
    int number = 2;
    for (const auto& [text, reason] :
         Files{{"{\n\"unit\": 4,\n\"ip", "unterminated string in line 3"},
               {"[1]", "it holds no JSON object"},
               {std::string(WholeFile::LONGEST + 1, ' '), "it is larger than 1 MiB"}}) {
        put(file, text);
        store().setValue("unit", std::int64_t{1});
        const auto aside = file.string() + ".unreadable-" + std::to_string(++number);
        EXPECT_EQ(contents(file) + contents(aside), R"({"unit":1})" + text);
        EXPECT_EQ(std::exchange(told, ""), sentence(reason, aside));
    }
    EXPECT_EQ(contents(folder / "settings.json.unreadable-1"), "taken");
}

TEST_F(FileSettings, AFileThatCanNotBeReadAtTheStartIsLeftAloneForTheRun) {
    put(file, R"({"unit":4})");
    ::mkfifo((folder / "pipe").c_str(), 0600);
    for (const auto& [name, reason] :
         Files{{"pipe", "it is no regular file"}, {"settings.json", "Too many open files"}}) {
        file = folder / name;
        auto descriptors = std::make_unique<Limited>(RLIMIT_NOFILE, name == "pipe" ? 99 : 0);
        auto settings = store();
        descriptors.reset();
        // The application writes back defaults here: they must not replace values that nobody saw.
        settings.setValue("unit", std::int64_t{1});
        queue.advance(1s);
        EXPECT_EQ(settings.integer("unit"), 1);
        EXPECT_NE(told.find("(" + reason + "); the file is left as it is"), std::string::npos) << told;
    }
    EXPECT_EQ(files(), (Files{{"pipe", ""}, {"settings.json", R"({"unit":4})"}}));
}

TEST_F(FileSettings, AFileThatBreaksDuringTheRunCostsNeitherSide) {
    put(file, R"({"unit":3,"more":1})");
    auto settings = store();
    put(file, R"({"unit":4,"more":1})"); // somebody's editor, in place and in the same tick of the clock
    EXPECT_EQ(settings.integer("unit"), 4);
    settings.setValue("polling", true);
    settings.remove("more");
    fs::remove(file);
    ::mkfifo(file.c_str(), 0600);
    settings.flush();
    EXPECT_TRUE(fs::is_fifo(file));
    fs::remove(file);
    put(file, "{ half an ed");
    EXPECT_EQ(settings.integer("unit"), 4);
    settings.flush();
    EXPECT_EQ(files(), (Files{{"settings.json", R"({"polling":true,"unit":4})"},
                              {"settings.json.unreadable-1", "{ half an ed"}}));
    fs::remove(file);
    EXPECT_EQ(settings.value("unit"), std::nullopt);
}

TEST_F(FileSettings, AFailedWriteKeepsTheOldFileAndIsToldOnceUntilOneSucceeds) {
    std::signal(SIGXFSZ, SIG_IGN);
    auto settings = store();
    for (std::int64_t round = 0; round < 2; ++round) {
        const auto before = files();
        settings.setValue("start", round);
        auto disk =
            std::make_unique<Limited>(RLIMIT_FSIZE, 10); // as on a full disk, the first bytes are taken
        settings.flush();
        queue.advance(1s);
        disk.reset();
        EXPECT_EQ(files(), before);
        const auto sentence = "The settings can't be saved in " + file.string() + " (File too large). ";
        EXPECT_EQ(std::exchange(told, "").rfind(sentence), 0);
        settings.flush();
        EXPECT_EQ(store().integer("start"), round);
    }
}

TEST_F(FileSettings, MakesItsFolderAndFollowsLinks) {
    const auto real = folder / "a" / "b" / "settings.json";
    file = real;
    store().setValue("unit", std::int64_t{1});
    EXPECT_EQ(contents(file), R"({"unit":1})");

    fs::create_symlink("a/b/settings.json", file = folder / "link");
    put(file, "{"); // set aside where it is; the link stays
    store().setValue("unit", std::int64_t{2});
    EXPECT_EQ(contents(real), R"({"unit":2})");
    EXPECT_EQ(contents(real.string() + ".unreadable-1"), "{");
    EXPECT_TRUE(fs::is_symlink(file));

    file /= "settings.json";
    store().setValue("unit", std::int64_t{3});
    EXPECT_NE(told.find("(Not a directory)"), std::string::npos) << told;
}

TEST_F(FileSettings, WaitsForAnotherProgramsLockWithoutBlocking) {
    const int lock = ::open(folder.c_str(), O_RDONLY | O_CLOEXEC);
    ::flock(lock, LOCK_EX);
    std::optional<FileSettingsStore> settings(std::in_place, queue, file, report);
    settings->setValue("unit", std::int64_t{1});
    settings->flush();
    queue.advance(10s);
    EXPECT_FALSE(fs::exists(file)) << "not while another program may be writing";
    ::flock(lock, LOCK_UN);
    queue.advance(FileSettingsStore::FLUSH_DELAY);
    EXPECT_EQ(contents(file), R"({"unit":1})");
    ::flock(lock, LOCK_EX);
    settings->setValue("unit", std::int64_t{2});
    EXPECT_EQ(told, "");
    settings.reset();
    ::close(lock);
    EXPECT_EQ(contents(file), R"({"unit":1})");
    EXPECT_NE(told.find("(another program has locked its folder)"), std::string::npos) << told;
}

TEST_F(FileSettings, ProgramsKeepEachOthersChangesAndKilledOnesDoNoHarm) {
    const auto start = [this](const std::string& name, int changes) {
        const auto child = ::fork();
        if (child != 0)
            return child;
        std::optional<FileSettingsStore> settings(std::in_place, queue, file, report);
        for (int change = 0; change < changes; ++change) {
            settings->setValue(name + std::to_string(change % 50), std::int64_t{change});
            settings->flush();
            ::usleep(300); // lets the others in
        }
        settings.reset();
        ::_exit(0);
    };
    start("first-", 50);
    start("second-", 50);
    for (unsigned round = 0; round < 40; ++round) {
        const auto child = start("killed-", 1 << 30);
        ::usleep(round * 137); // spreads the kills over the steps of a write
        ::kill(child, SIGKILL);
    }
    while (::wait(nullptr) > 0)
        ;
    const auto settings = store();
    for (int change = 0; change < 50; ++change)
        for (const auto* name : {"first-", "second-"})
            EXPECT_EQ(settings.text(name + std::to_string(change)), std::to_string(change)) << name;
}

} // namespace lumbra::test
