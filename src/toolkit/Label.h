#pragma once

#include "toolkit/Control.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace lumbra {

/// A whole number with its unit.
struct Reading {
    enum class Unit : std::uint8_t { Percent, Decibel, Hertz, Kilohertz };

    std::int64_t number;
    Unit unit;

    bool operator==(const Reading&) const = default;
    /// "50%", "-40 dB", "1 kHz".
    std::string text() const {
        static constexpr std::string_view SUFFIXES[] = {"%", " dB", " Hz", " kHz"};
        return std::to_string(number).append(SUFFIXES[static_cast<std::size_t>(unit)]);
    }
};

/// A line of text (UTF-8), which may be a reading: a coarse one may have the exact value beside it.
class Label final : public Control {
public:
    static constexpr Kind KIND = Kind::Label;

    explicit Label(std::string text) : Control(KIND), text_(std::move(text)) {}
    explicit Label(const Reading& reading) : Label(reading.text()) { reading_ = reading; }

    const std::string& text() const { return text_; }
    /// The value behind the text, so that a front end can present it differently; nothing for plain text.
    const std::optional<Reading>& reading() const { return reading_; }

    /// The exact value of a coarse reading; nothing where the reading says it all.
    const std::optional<Reading>& exact() const { return exact_; }

    void setText(std::string_view text) { show(text, std::nullopt); }
    void setReading(const Reading& reading) { show(reading.text(), reading); }
    void setReading(const Reading& reading, const Reading& exact) {
        setReading(reading);
        exact_ = exact;
        exactChanged_.emit();
    }

    /// Calls `observer` when the exact value may have changed. The text may be the same as before.
    Subscription onExactChange(std::function<void()> observer) {
        return exactChanged_.subscribe(std::move(observer));
    }

private:
    void show(std::string_view text, const std::optional<Reading>& reading) {
        reading_ = reading;
        exact_.reset();
        if (text_ == text)
            return;
        text_ = text;
        notifyChanged();
    }

    std::string text_;
    std::optional<Reading> reading_;
    std::optional<Reading> exact_;
    Signal<> exactChanged_;
};

} // namespace lumbra
