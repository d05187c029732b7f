// Whatever a program's --help lists, its manual page and the completions of each shell have, and nothing else.

#include "Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <span>
#include <sstream>

namespace {

using namespace lumbra;
using Words = std::vector<std::string>;

const std::string PAGES = PAGES_FOLDER;
const std::map<std::string, const char*> PROGRAMS{{"lumbra-remote", REMOTE_PROGRAM},
                                                  {"lumbra-unit-sim", SIMULATOR_PROGRAM}};

/// What a command prints, to either stream.
std::string output(const Words& command, const std::string& input = {}) {
    Process process(command);
    process.write(input);
    process.endInput();
    process.wait();
    return process.rest() + process.errors();
}

/// The first group of every match, in order of the alphabet.
Words matches(const std::string& text, const char* pattern) {
    const std::regex regex(pattern, std::regex::multiline);
    Words found;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        found.push_back((*match)[1]);
    std::sort(found.begin(), found.end());
    return found;
}

Words optionsOf(const std::string& program) {
    return matches(output({PROGRAMS.at(program), "--help"}), "^  (?:-[a-z], )?(--[a-z-]+)");
}

TEST(ManualPage, TellsWhatTheProgramTells) {
    const auto help = output({REMOTE_PROGRAM, "--console", "--json", "--demo"}, "help\n");
    for (const auto& [program, file] : PROGRAMS) {
        const auto page = std::string(PAGES).append("/").append(program).append(".1");
        EXPECT_EQ(output({"/usr/bin/mandoc", "-T", "lint", "-W", "warning", page}), "");
        const auto text = output({"/usr/bin/mandoc", "-T", "ascii", "-O", "width=200", page});
        const auto plain = std::regex_replace(text, std::regex(".\b"), "");
        EXPECT_EQ(matches(plain, "^       (?:-[a-z], )?(--[a-z-]+)"), optionsOf(program)) << plain;
        for (const auto& usage : matches(help, "\"usage\":\"([^\"]*)\""))
            EXPECT_EQ(plain.find("\n       " + usage) != std::string::npos, program == "lumbra-remote")
                << usage << plain;
    }
}

/// A shell at a terminal, in which "^Xa" inserts all completions and "^Xp" prints the line in braces.
class Shell : Process {
public:
    Shell(Words command, const std::string& setUp) : Process(std::move(command), Streams::Terminal) {
        write(setUp + "; echo rea''dy\n");
        EXPECT_TRUE(readUntil("ready\r\n"));
    }
    /// What the shell puts for the last word of the line.
    std::string complete(const std::string& line) {
        write("\x15" + line + "\x18" + "a\x18p");
        const auto whole = readUntil("{") ? readUntil("}").value_or("") : "";
        const auto start = line.rfind(' ') + 1;
        return whole.size() < start ? whole : whole.substr(start, whole.size() - start - 1);
    }
};

TEST(Completion, OffersInEveryShellWhatTheProgramTakes) {
    if (::access("/dev/pts/ptmx", F_OK) != 0)
        GTEST_SKIP() << "this system has no pseudo-terminals";
    const Folder folder;
    for (const auto* name : {"plain.json", "two words.json"})
        std::ofstream(folder / name) << "{}";
    std::pair<std::string, std::string> rows[] = {
        {"lumbra-remote --", ""},
        {"lumbra-unit-sim --", ""},
        {"lumbra-remote --demo --c", "--console "},
        {"lumbra-remote --connect-to a:1 --settings plain.json --help -h --d", "--d"},
        {"lumbra-remote --settings p", "plain.json "},
        {"lumbra-remote --settings=t", "--settings=two\\ words.json "},
        {"lumbra-remote --connect-to ", ""},
        {"lumbra-unit-sim --reset-after 5 --e", "--e"},
        {"lumbra-unit-sim --unit ", "1 2 3 4 "},
        {"lumbra-unit-sim --unit 2 --u", "--u"},
    };
    for (auto& [line, offered] : std::span(rows).first(2))
        for (const auto& option : optionsOf(line.substr(0, line.find(' '))))
            offered += option + " ";
    const auto in = [&](Words command) {
        command.insert(command.begin(), {"/usr/bin/env", "-C", folder / "", "HOME=" + folder / "", "LC_ALL=C",
                                         "INPUTRC=/dev/null", "TERM=dumb"});
        return command;
    };
    Shell bash(
        in({"bash", "--norc", "--noprofile", "-i"}),
        "bind '\"\\C-xa\": insert-completions'; bind -x '\"\\C-xp\": printf {%s} \"$READLINE_LINE\"'; . " +
            PAGES + "/bash/lumbra-remote; . " + PAGES + "/bash/lumbra-unit-sim");
    Shell zsh(in({"zsh", "-f", "-i"}),
              "fpath=(" + PAGES +
                  "/zsh $fpath); autoload -U compinit; compinit -D -u; bindkey -e; "
                  "show() { print -rn \"{$BUFFER}\" }; zle -N show; bindkey ^Xp show; "
                  "zle -C all complete-word _generic; bindkey ^Xa all; "
                  "zstyle :completion:all:::: completer _all_matches _complete; "
                  "zstyle ':completion:all:*' insert true");
    const auto fish = [&](const std::string& line) {
        std::istringstream lines(output(in({"fish", "--no-config", "-c",
                                            "source " + PAGES + "/fish/lumbra-remote.fish; source " + PAGES +
                                                "/fish/lumbra-unit-sim.fish; complete -C '" + line + "'"})));
        std::string all;
        for (std::string word; std::getline(lines, word);)
            all += std::regex_replace(word.substr(0, word.find('\t')), std::regex(" "), "\\ ") + " ";
        return all.empty() ? line.substr(line.rfind(' ') + 1) : all;
    };
    for (const auto& [line, offered] : rows) {
        EXPECT_EQ(bash.complete(line), offered) << line;
        EXPECT_EQ(zsh.complete(line), offered) << line;
        EXPECT_EQ(fish(line), offered) << line;
    }
}

} // namespace
