#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace lumbra::sim {

/// Splits a client's bytes into commands, "[U" + unit digit + body + "]". Bytes outside brackets are dropped,
/// a "[" always begins a new command, and a text that is too long for a command is dropped, so memory is
/// bounded.
class CommandReader {
public:
    /// The longest text between brackets that is kept. The longest command has 18 characters.
    static constexpr std::size_t LONGEST_TEXT = 64;

    struct Command {
        int unit; ///< 0 to 9; -1 if the text does not begin with "U" and a digit
        std::string body;
    };

    /// Reads the next byte. Returns the command that it completes, if any.
    std::optional<Command> take(char byte);

private:
    bool inside_ = false;
    std::string text_;
};

} // namespace lumbra::sim
