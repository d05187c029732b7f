#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::script {

class CommandInterpreter;

/// What an argument stands for, for completion.
enum class Argument : std::uint8_t {
    Nothing,
    Tab, ///< also the screen of `at`
    Picker,
    Slider,
    Switch,
    Segmented,
    Button,
    Row,      ///< of the picker before it
    Item,     ///< a row of the item picker
    Position, ///< of a switch
    Watching,
    SettingKey,
    StoredValue,
    Event, ///< a lifecycle event
    Awaited,
    Number,
};

/// The command succeeded.
struct Done {};
/// The command was refused, or a wait timed out.
struct Failed {
    std::string error; ///< a sentence for the user
};
/// The reply has been printed.
struct Answered {};
/// The reply follows later.
struct Held {};
/// The result of a command.
using Outcome = std::variant<Done, Failed, Answered, Held>;

/// The words behind a command's name.
using Arguments = std::span<const std::string>;

/// The definition of a command: its name, its arguments and its function.
struct Command {
    std::string_view usage; ///< name and arguments, as help shows them
    std::string_view help;
    std::size_t fewest; ///< the smallest number of arguments
    std::size_t most;   ///< the largest
    std::array<Argument, 2> kinds;
    std::function<Outcome(CommandInterpreter&, Arguments)> run;

    std::string_view name() const { return usage.substr(0, usage.find(' ')); }
};

} // namespace lumbra::script
