#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lumbra {

// Commands to the unit. A body is what stands between the unit's digit and the closing bracket. Zones,
// outputs, groups and inputs are 0-based here and 1-based on the wire. Ranges are the caller's to keep. Any
// thread.

/// The whole command as it goes on the wire: "[U", the unit's number, the body, "]".
std::string frameCommand(std::int64_t unit, std::string_view body);

/// Asks the unit for all that a screen shows. Each screen has its number: a QUERY_NUMBER.
std::string queryState(int query);
/// Tells the unit the serial-port flag.
std::string announceSerial(bool serial);

/// What a command may be about; the value is its letter on the wire.
enum class ItemKind : char { Zone = 'Z', Output = 'O', Group = 'G' };

/// Sets an item's volume, in dB.
std::string setVolume(ItemKind kind, std::int64_t item, std::int64_t level);
/// Has an item play an input.
std::string selectInput(ItemKind kind, std::int64_t item, std::int64_t input);
/// Mutes an item or lets it sound again.
std::string setMute(ItemKind kind, std::int64_t item, bool on);
/// Turns an output or a group on or off.
std::string setPower(ItemKind kind, std::int64_t item, bool on);

namespace detail {
/// A letter or code, the item's number on the wire, and what follows it.
std::string itemCommand(std::string_view code, std::int64_t item, std::string_view rest);
} // namespace detail

} // namespace lumbra
