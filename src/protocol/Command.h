#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumbra {

// Command bodies. A body is what a command has between the unit's digit and the closing bracket; a screen
// frames and sends it. Zones, outputs, groups and inputs are 0-based here and 1-based on the wire. Ranges are
// not checked: the caller passes only valid values. Any thread.

/// The whole command as it is sent: "[U", the unit's number, the body, "]".
std::string frameCommand(std::int64_t unit, std::string_view body);
/// What `frameCommand` made a command of. The body is valid as long as the command.
struct CommandParts {
    std::int64_t unit;
    std::string_view body;
};
/// Takes a command apart; nothing if it is not one.
std::optional<CommandParts> readCommand(std::string_view command);

/// Asks the unit for the state that a screen shows. `query` is the screen's QUERY_NUMBER, 0 to 4.
std::string queryState(int query);
/// Announces the serial-port flag.
std::string announceSerial(bool serial);
/// Whether a body announces that flag, on or off.
bool isSerialAnnouncement(std::string_view body);

/// The kinds of items. The value is the letter on the wire.
enum class ItemKind : char { Zone = 'Z', Output = 'O', Group = 'G' };

/// Sets an item's volume to `level` dB, -80 to 0.
std::string setVolume(ItemKind kind, std::int64_t item, std::int64_t level);
/// Selects the input that an item plays.
std::string selectInput(ItemKind kind, std::int64_t item, std::int64_t input);
/// Mutes an item, or unmutes it.
std::string setMute(ItemKind kind, std::int64_t item, bool on);
/// Turns an output or a group on or off.
std::string setPower(ItemKind kind, std::int64_t item, bool on);

namespace detail {
/// The body of `code`, the 0-based item's number on the wire, and `rest`.
std::string itemCommand(std::string_view code, std::int64_t item, std::string_view rest);
} // namespace detail

} // namespace lumbra
