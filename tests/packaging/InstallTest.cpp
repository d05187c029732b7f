#include "Process.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

namespace {

using namespace lumbra;

const std::string ID = APPLICATION_ID;

std::string read(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/// The first group of the first match.
std::string match(const std::string& text, const char* pattern) {
    std::smatch found;
    return std::regex_search(text, found, std::regex(pattern)) ? found[1].str() : "nothing";
}

TEST(Installation, RunsFromAnyFolder) {
    const Folder folder;
    Process install({"/usr/bin/env", "DESTDIR=" + (folder / "root"), CMAKE, "--install", BUILD_FOLDER,
                     "--prefix", "/opt/remote"});
    ASSERT_EQ(install.wait(), 0) << install.errors();
    const auto prefix = folder / "root/opt/remote";
    for (const auto* file :
         {"man/man1/lumbra-remote.1", "man/man1/lumbra-unit-sim.1",
          "bash-completion/completions/lumbra-remote", "zsh/site-functions/_lumbra-unit-sim",
          "fish/vendor_completions.d/lumbra-unit-sim.fish", "doc/lumbra-remote/LICENSE"})
        EXPECT_FALSE(read(prefix + "/share/" + file).empty()) << file;

    Process unit({prefix + "/bin/lumbra-unit-sim", "--verbose"});
    const auto place = "127.0.0.1:" + match(unit.readLine().value_or(""), ":([0-9]+)$");
    // Started by a link to it, as in /usr/local/bin, it still finds its module.
    std::filesystem::create_symlink(prefix + "/bin/lumbra-remote", folder / "link");
    Process window({"/usr/bin/env", "QT_QPA_PLATFORM=offscreen", "XDG_CONFIG_HOME=" + (folder / "config"),
                    folder / "link", "--connect-to", place});
    ASSERT_TRUE(unit.readUntil("! connected")) << window.errors();
    window.signal(SIGTERM);
    EXPECT_EQ(window.wait(), 0);
    EXPECT_EQ(window.errors() + read(folder / "config/lumbra-remote/settings.json").substr(0, 1), "{");
    EXPECT_TRUE(unit.readUntil("! closed by the client"));

    const auto share = prefix + "/share/";
    const auto entry = share + "applications/" + ID + ".desktop";
    const auto metainfo = share + "metainfo/" + ID + ".metainfo.xml";
    EXPECT_EQ(Process({"/usr/bin/desktop-file-validate", entry}).rest(), "");
    Process validation(
        {"/usr/bin/appstreamcli", "validate", "--pedantic", "--no-net", "--no-color", metainfo});
    EXPECT_NE(validation.rest().find("successful.\n"), std::string::npos) << validation.rest();
    const auto icon = match(read(entry), "\nIcon=(.*)\n");
    const auto icons = share + "icons/hicolor/";
    for (const auto& file : {"scalable/apps/" + icon + ".svg", "symbolic/apps/" + icon + "-symbolic.svg"})
        EXPECT_NE(read(icons + file), "") << file;
    EXPECT_EQ(match(read(metainfo), "<id>(.*)</id>"), ID);
    EXPECT_EQ(match(read(metainfo), "<launchable type=\"desktop-id\">(.*).desktop<"), ID);

    Process version({prefix + "/bin/lumbra-remote", "--version"});
    const auto number = match(version.rest(), " ([0-9.]+)\n");
    const auto day = match(read(metainfo), "<release version=\"[0-9.]+\" date=\"(.*)\"");
    EXPECT_EQ(match(read(metainfo), "<release version=\"([0-9.]+)\""), number);
    EXPECT_EQ(match(read(share + "doc/lumbra-remote/CHANGELOG.md"), "\n## (.*)\n"),
              number + " (" + day + ")");
    EXPECT_EQ(match(read(SOURCE_FOLDER "/packaging/debian/changelog"), "\\((.*)-[0-9]+\\)"), number);
}

} // namespace
