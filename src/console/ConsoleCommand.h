#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra {

class CommandInterpreter;

/// What a word of a command stands for, so that it can be completed.
enum class Argument : std::uint8_t {
    Nothing,
    Tab,
    Picker,
    Slider,
    Switch,
    Segmented,
    Button,
    Position, ///< of a switch
    SettingKey,
    StoredValue,
    Event, ///< of the application's life
    Awaited,
    Number,
};

// What a command came to.
struct Done {};
struct Failed {
    std::string error; ///< a sentence a person can act on
};
struct Answered {}; ///< the reply is given already
struct Held {};     ///< the reply comes later
using Outcome = std::variant<Done, Failed, Answered, Held>;

/// A command's name, its arguments and what it does: all that the console knows of it.
struct ConsoleCommand {
    std::string_view usage; ///< its name and its arguments, as a person is told
    std::string_view help;
    std::size_t fewest; ///< arguments
    std::size_t most;
    std::array<Argument, 2> kinds;
    Outcome (CommandInterpreter::*run)(std::span<const std::string> arguments);

    constexpr std::string_view name() const { return usage.substr(0, usage.find(' ')); }
};

} // namespace lumbra
