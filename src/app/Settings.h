#pragma once

#include "platform/SettingsStore.h"
#include "toolkit/Translatable.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace lumbra {

// The keys of the six settings in the store.
inline constexpr std::string_view IP_ADDRESS_PREFERENCE = "ip_address_preference";
inline constexpr std::string_view UNIT_NUMBER_PREFERENCE = "unit_number_preference";
inline constexpr std::string_view POLLING_PREFERENCE = "polling_preference";
inline constexpr std::string_view SERIAL_PORT_PREFERENCE = "serial_port_preference";
inline constexpr std::string_view START_TAB_PREFERENCE = "start_tab_preference";
inline constexpr std::string_view ADVANCED_MODE_PREFERENCE = "advanced_mode_preference";

// The unit numbers that the application accepts.
inline constexpr std::int64_t MIN_UNIT_NUMBER = 1;
inline constexpr std::int64_t MAX_UNIT_NUMBER = 4;

/// An entry of the settings screen.
struct SettingEntry {
    enum class Type : std::uint8_t { Text, Integer, Flag };
    std::string_view key;
    Type type;
    std::string_view caption;
    std::string_view explanation = {}; ///< a sentence; empty where the caption says it all
};

/// The settings screen's entries, from top to bottom.
inline constexpr std::array<SettingEntry, 6> SETTINGS{{
    {IP_ADDRESS_PREFERENCE, SettingEntry::Type::Text, LUMBRA_TEXT("System", "IP address")},
    {UNIT_NUMBER_PREFERENCE, SettingEntry::Type::Integer, LUMBRA_TEXT("System", "Unit number")},
    {POLLING_PREFERENCE, SettingEntry::Type::Flag, LUMBRA_TEXT("System", "State queries"),
     LUMBRA_TEXT("System", "Each screen asks the unit for its state when it appears.")},
    {SERIAL_PORT_PREFERENCE, SettingEntry::Type::Flag, LUMBRA_TEXT("System", "Serial port"),
     LUMBRA_TEXT("System", "The unit is told after each connect that its serial port is in use.")},
    {START_TAB_PREFERENCE, SettingEntry::Type::Integer, LUMBRA_TEXT("System", "Start tab")},
    {ADVANCED_MODE_PREFERENCE, SettingEntry::Type::Flag, LUMBRA_TEXT("System", "Advanced mode")},
}};

/// The entry with that key, or null.
constexpr const SettingEntry* findSetting(std::string_view key) {
    for (const auto& entry : SETTINGS)
        if (entry.key == key)
            return &entry;
    return nullptr;
}

/// The address and the number of a unit.
struct UnitPlace {
    std::string address; ///< UTF-8, not validated
    std::int64_t unit;
};

/// Stores the link settings of a first start with `place`.
inline void storeUnit(SettingsStore& settings, const UnitPlace& place) {
    settings.setValue(IP_ADDRESS_PREFERENCE, place.address);
    settings.setValue(UNIT_NUMBER_PREFERENCE, place.unit);
    settings.setValue(POLLING_PREFERENCE, true); // off where nothing is stored
}

} // namespace lumbra
