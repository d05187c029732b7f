#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::console {

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
    Event, ///< a lifecycle event
    Awaited,
    Number,
};

/// The command was carried out.
struct Done {};
/// The command was refused, or what it waited for did not happen.
struct Failed {
    std::string error; ///< a sentence a person can act on
};
/// The reply is printed already.
struct Answered {};
/// The reply comes later.
struct Held {};
/// The result of a command.
using Outcome = std::variant<Done, Failed, Answered, Held>;

/// All that the console knows of a command: its name, its arguments and the function that carries it out.
struct ConsoleCommand {
    std::string_view usage; ///< name and arguments, as help shows them
    std::string_view help;
    std::size_t fewest; ///< number of arguments
    std::size_t most;
    std::array<Argument, 2> kinds;
    Outcome (CommandInterpreter::*run)(std::span<const std::string> arguments);

    constexpr std::string_view name() const { return usage.substr(0, usage.find(' ')); }
};

} // namespace lumbra::console
