#include "Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>

namespace {

using namespace lumbra;
using Words = std::vector<std::string>;

const std::string PAGES = PAGES_FOLDER;

Words split(const std::string& text, char separator) {
    Words words;
    std::istringstream stream(text);
    for (std::string word; std::getline(stream, word, separator);)
        if (!word.empty())
            words.push_back(word);
    return words;
}

std::string output(const Words& command) {
    Process process(command);
    auto text = process.rest();
    EXPECT_EQ(process.wait(), 0) << command[0] << ": " << process.errors();
    return text;
}

/// A shell at a terminal, in which "^Xa" inserts all completions and "^Xp" prints the line in braces.
class Shell : Process {
public:
    Shell(Words command, const std::string& setUp) : Process(std::move(command), Streams::Terminal) {
        write(setUp + "; echo rea''dy\n");
        EXPECT_TRUE(readUntil("ready"));
    }

    /// The line after all completions have been inserted.
    std::string complete(const std::string& line) {
        write("\x15" + line +
              "\x18"
              "a\x18p");
        if (!readUntil("{lumbra-"))
            return "nothing";
        return "lumbra-" + readUntil("}").value_or("");
    }
};

std::string bash(const std::string& program, const std::string& line) {
    static Shell shell({"/usr/bin/env", "INPUTRC=/dev/null", "bash", "--norc", "--noprofile", "-i"},
                       "bind '\"\\C-xa\": insert-completions'; bind -x '\"\\C-xp\": printf \"{%s}\" "
                       "\"$READLINE_LINE\"'; cd " +
                           std::string(FIXTURE) + "; source " + PAGES + "/bash/lumbra-remote; source " +
                           PAGES + "/bash/lumbra-unit-sim");
    return shell.complete(line);
}

} // namespace
