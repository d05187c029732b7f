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
/// A typed getter converts what it finds where that has a plain meaning (a decimal text read as a number) and
/// answers as for an absent key where it has none. A write is seen by every later read; it reaches the disk
/// soon by itself.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// What is stored under `key` as it stands; nothing where the key is absent.
    virtual std::optional<SettingValue> value(std::string_view key) const = 0;
    /// Stores `value` under `key`.
    virtual void setValue(std::string_view key, SettingValue value) = 0;
    /// Makes `key` absent.
    virtual void remove(std::string_view key) = 0;
    /// Writes what has changed to the disk now, or as soon as it can without blocking.
    virtual void flush() = 0;

    /// The text under `key`; nothing where absent.
    std::optional<std::string> text(std::string_view key) const;
    /// The whole number under `key`; 0 where absent.
    std::int64_t integer(std::string_view key) const;
    /// The flag under `key`; false where absent.
    bool flag(std::string_view key) const;
};

} // namespace lumbra
