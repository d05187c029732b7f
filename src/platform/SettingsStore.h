#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra {

/// A stored setting of any of the three types.
using SettingValue = std::variant<std::string, std::int64_t, bool>;

/// The application's persistent key-value store. Main thread only.
///
/// A typed getter converts between types where that is unambiguous (a decimal text read as a number).
/// Otherwise it returns what it returns for an absent key. A write is visible to every later read and reaches
/// the disk within a short time. No member throws or reports a failed write; how one is reported is up to the
/// implementation.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The value stored under `key`, unconverted; nothing if the key is absent.
    virtual std::optional<SettingValue> value(std::string_view key) const = 0;
    /// Stores `value` under `key`.
    virtual void setValue(std::string_view key, SettingValue value) = 0;
    /// Removes `key`.
    virtual void remove(std::string_view key) = 0;
    /// Writes the changes to the disk now, or as soon as that is possible without blocking.
    virtual void flush() = 0;

    /// The text under `key`; nothing if absent.
    std::optional<std::string> text(std::string_view key) const;
    /// The whole number under `key`; 0 if absent.
    std::int64_t integer(std::string_view key) const;
    /// The flag under `key`; false if absent.
    bool flag(std::string_view key) const;
};

} // namespace lumbra
