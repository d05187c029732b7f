#pragma once

#include "platform/SettingsStore.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace lumbra {

/// Settings that last as long as this object.
class MemorySettingsStore final : public SettingsStore {
public:
    std::optional<SettingValue> value(std::string_view key) const override {
        const auto found = values_.find(key);
        return found == values_.end() ? std::nullopt : std::optional(found->second);
    }
    void setValue(std::string_view key, SettingValue value) override {
        values_.insert_or_assign(std::string(key), std::move(value));
    }
    void remove(std::string_view key) override {
        if (const auto found = values_.find(key); found != values_.end())
            values_.erase(found);
    }
    void flush() override {}

private:
    std::map<std::string, SettingValue, std::less<>> values_;
};

} // namespace lumbra
