#pragma once

#include "app/Settings.h"
#include "platform/MemorySettingsStore.h"
#include "platform/SettingsStore.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace lumbra::web {

/// The settings of a visitor: start tab and mode are its own, and kept by its browser; the link's are the program's,
/// and can't be changed. Main thread only.
class VisitorSettings final : public SettingsStore {
public:
    /// `program` outlives these settings.
    VisitorSettings(const SettingsStore& program, std::int64_t startTab, bool isAdvanced)
        : program_(program) {
        own_.setValue(START_TAB_PREFERENCE, startTab);
        own_.setValue(ADVANCED_MODE_PREFERENCE, isAdvanced);
    }

    static bool isOwn(std::string_view key) {
        return key == START_TAB_PREFERENCE || key == ADVANCED_MODE_PREFERENCE;
    }

    std::optional<SettingValue> value(std::string_view key) const override {
        return isOwn(key) ? own_.value(key) : program_.value(key);
    }
    /// Does nothing for a setting of the link. So does `remove`.
    void setValue(std::string_view key, SettingValue value) override {
        if (isOwn(key))
            own_.setValue(key, std::move(value));
    }
    void remove(std::string_view key) override { own_.remove(key); }
    void flush() override {}

private:
    const SettingsStore& program_;
    MemorySettingsStore own_;
};

} // namespace lumbra::web
