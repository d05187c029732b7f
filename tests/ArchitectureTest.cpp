#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

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
    const std::regex include("^ *# *include +(<Q|\"([^\"/]+)/)", std::regex::multiline);
    for (const auto& [room, allowed] : rooms)
        for (const auto& entry : fs::recursive_directory_iterator(folderOf(room))) {
            const auto isSource = entry.path().extension() == ".h" || entry.path().extension() == ".cpp";
            const auto text = isSource ? read(entry.path()) : "";
            for (std::sregex_iterator match(text.begin(), text.end(), include), end; match != end; ++match) {
                const auto folder = (*match)[2].str();
                EXPECT_TRUE(folder.empty()
                                ? allowed.qt
                                : folder == room || !rooms.contains(folder) || allowed.rooms.contains(folder))
                    << entry.path() << ": " << match->str();
            }
        }
}

} // namespace
