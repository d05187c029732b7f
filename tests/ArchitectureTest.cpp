#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

// What each room may include and link: the table of docs/architecture.md.
const std::map<std::string, Names> MAY_LEAN_ON{
    {"platform", {}},
    {"model", {}},
    {"toolkit", {}},
    {"protocol", {"model"}},
    {"link", {"platform", "protocol", "toolkit"}},
    {"screens", {"link", "model", "platform", "protocol", "toolkit"}},
    {"app", {"link", "platform", "screens", "toolkit"}},
    {"qt", {"platform"}},
    {"console", {"app", "link", "platform", "screens", "toolkit"}},
    {"touch", {"app", "link", "platform", "screens", "toolkit"}},
};
// The rooms that know no Qt.
const Names WITHOUT_QT{"platform", "model", "toolkit", "protocol", "link", "screens", "app", "console"};

const fs::path SOURCE = LUMBRA_SOURCE_DIR;

std::string read(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool isSource(const fs::path& file) {
    return file.extension() == ".h" || file.extension() == ".cpp";
}

/// Calls `visit(room, file, included, isQuoted)` for each include of a folder's sources.
template <class Visit>
void eachInclude(const fs::path& folder, Visit visit) {
    const std::regex include("^ *# *include +([<\"])([^>\"]+)[>\"]", std::regex::multiline);
    int sources = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!isSource(entry.path()))
            continue;
        ++sources;
        const auto text = read(entry.path());
        for (std::sregex_iterator match(text.begin(), text.end(), include), end; match != end; ++match)
            visit(entry.path(), (*match)[2].str(), (*match)[1] == "\"");
    }
    EXPECT_GT(sources, 0) << folder << " is empty";
}

TEST(Architecture, IncludesKeepToTheTable) {
    for (const auto& [room, allowed] : MAY_LEAN_ON) {
        eachInclude(SOURCE / "src" / room, [&, &room = room, &allowed = allowed](const fs::path& file,
                                                                                 const std::string& included,
                                                                                 bool quoted) {
            const auto folder = included.substr(0, included.find('/'));
            if (quoted && MAY_LEAN_ON.contains(folder)) {
                EXPECT_TRUE(folder == room || allowed.contains(folder)) << file << " includes " << included;
            }
            const bool isQt = !quoted && included.front() == 'Q';
            EXPECT_FALSE(isQt && WITHOUT_QT.contains(room)) << file << " includes " << included;
        });
    }
}

TEST(Architecture, LinksKeepToTheTable) {
    const std::regex target("lumbra_([a-z]+)|Qt6::[A-Za-z0-9]+");
    for (const auto& [room, allowed] : MAY_LEAN_ON) {
        const auto text = read(SOURCE / "src" / room / "CMakeLists.txt");
        EXPECT_NE(text.find(room), std::string::npos) << room << " has no target";
        for (std::sregex_iterator match(text.begin(), text.end(), target), end; match != end; ++match) {
            const auto linked = (*match)[1].str();
            if (match->str().starts_with("Qt6::")) {
                EXPECT_FALSE(WITHOUT_QT.contains(room)) << room << " links " << match->str();
            } else if (MAY_LEAN_ON.contains(linked)) {
                EXPECT_TRUE(linked == room || allowed.contains(linked)) << room << " links " << linked;
            }
        }
    }
}

// A mistake in the protocol room must not be made in the simulated unit too.
TEST(Architecture, SimulatorSharesNothingWithTheApplication) {
    eachInclude(SOURCE / "simulator", [&](const fs::path& file, const std::string& included, bool quoted) {
        EXPECT_FALSE(quoted && MAY_LEAN_ON.contains(included.substr(0, included.find('/'))))
            << file << " includes " << included;
    });
    EXPECT_FALSE(
        std::regex_search(read(SOURCE / "simulator" / "CMakeLists.txt"),
                          std::regex("lumbra_(platform|model|toolkit|protocol|link|screens|app|qt)")));
}

} // namespace
