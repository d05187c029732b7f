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

const fs::path SOURCE = LUMBRA_SOURCE_DIR;

std::string read(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What a room may include and link.
struct Room {
    Names rooms;
    bool qt = false;
};

/// The table of docs/architecture.md: rooms are in backticks, "Qt" stands for itself.
std::map<std::string, Room> table() {
    std::map<std::string, Room> rooms;
    const std::regex row("^\\| `([a-z]+)` \\| .* \\| ([^|]*) \\|$", std::regex::multiline);
    const std::regex name("`([a-z]+)`");
    const auto page = read(SOURCE / "docs" / "architecture.md");
    for (std::sregex_iterator match(page.begin(), page.end(), row), end; match != end; ++match) {
        const auto leansOn = (*match)[2].str();
        auto& room = rooms[(*match)[1]];
        room.qt = leansOn.find("Qt") != std::string::npos;
        for (std::sregex_iterator on(leansOn.begin(), leansOn.end(), name); on != end; ++on)
            room.rooms.insert((*on)[1]);
    }
    return rooms;
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

fs::path folderOf(const std::string& room) {
    return room == "simulator" ? SOURCE / room : SOURCE / "src" / room;
}

TEST(Architecture, TheTableHoldsEveryRoom) {
    const auto rooms = table();
    for (const auto& entry : fs::directory_iterator(SOURCE / "src"))
        EXPECT_TRUE(!entry.is_directory() || rooms.contains(entry.path().filename().string()))
            << entry.path();
    EXPECT_FALSE(rooms.at("protocol").rooms.contains("platform"));
    // A mistake in the protocol must not be made in the simulated unit too.
    EXPECT_EQ(rooms.at("simulator").rooms, Names{"system"});
}

TEST(Architecture, IncludesKeepToTheTable) {
    const auto rooms = table();
    for (const auto& [room, allowed] : rooms)
        eachInclude(folderOf(room), [&, &room = room, &allowed = allowed](
                                        const fs::path& file, const std::string& included, bool quoted) {
            const auto folder = included.substr(0, included.find('/'));
            if (quoted && rooms.contains(folder)) {
                EXPECT_TRUE(folder == room || allowed.rooms.contains(folder))
                    << file << " includes " << included;
            }
            EXPECT_FALSE(!quoted && included.front() == 'Q' && !allowed.qt)
                << file << " includes " << included;
        });
}

TEST(Architecture, LinksKeepToTheTable) {
    const auto rooms = table();
    const std::regex target("lumbra_([a-z]+)|Qt6::[A-Za-z0-9]+");
    for (const auto& [room, allowed] : rooms) {
        const auto text = read(folderOf(room) / "CMakeLists.txt");
        EXPECT_NE(text.find(room), std::string::npos) << room << " has no target";
        for (std::sregex_iterator match(text.begin(), text.end(), target), end; match != end; ++match) {
            const auto linked = (*match)[1].str();
            if (match->str().starts_with("Qt6::")) {
                EXPECT_TRUE(allowed.qt) << room << " links " << match->str();
            } else if (rooms.contains(linked)) {
                EXPECT_TRUE(linked == room || allowed.rooms.contains(linked)) << room << " links " << linked;
            }
        }
    }
}

} // namespace
