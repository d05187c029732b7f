#pragma once

#include "toolkit/Control.h"

#include <cstdint>
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

/// A line of text (UTF-8), which may be a reading.
class Label final : public Control {
public:
    static constexpr Kind KIND = Kind::Label;

    explicit Label(std::string text) : Control(KIND), text_(std::move(text)) {}
    explicit Label(const Reading& reading) : Label(reading.text()) { reading_ = reading; }

    const std::string& text() const { return text_; }
    /// The value behind the text, so that a front end can present it differently; nothing for plain text.
    const std::optional<Reading>& reading() const { return reading_; }

    void setText(std::string_view text) { show(text, std::nullopt); }
    void setReading(const Reading& reading) { show(reading.text(), reading); }

private:
    void show(std::string_view text, const std::optional<Reading>& reading) {
        reading_ = reading;
        if (text_ == text)
            return;
        text_ = text;
        notifyChanged();
    }

    std::string text_;
    std::optional<Reading> reading_;
};

} // namespace lumbra
