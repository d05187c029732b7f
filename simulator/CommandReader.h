#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace lumbra::sim {

/// Cuts one client's bytes into commands, "[U" + unit digit + body + "]". What stands outside brackets is
/// dropped, a "[" always begins a new command, and a text that is too long for a command is dropped too, so
/// that no input makes the reader grow.
class CommandReader {
public:
    /// The longest text between brackets that is kept; the longest command has 18 characters.
    static constexpr std::size_t LONGEST_TEXT = 64;

    struct Command {
        int unit; ///< 0 to 9; -1 when the text does not begin with "U" and a digit
        std::string body;
    };

    /// Takes the next byte; gives the command that it completes.
    std::optional<Command> take(char byte);

private:
    bool inside_ = false;
    std::string text_;
};

} // namespace lumbra::sim
