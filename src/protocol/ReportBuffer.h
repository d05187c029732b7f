#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace lumbra {

/// Cuts the unit's byte stream into report texts: what stands between "(" and ")". One byte is one character.
///
/// A text may be of any length. No form reads past its first CAPACITY characters, which the compiler checks,
/// so no more of it is kept and a text without an end costs nothing. Not for use by two threads at once.
class ReportBuffer {
public:
    static constexpr std::size_t CAPACITY = 64;

    /// Takes `bytes` in order and calls `onReport(std::string_view)` for each completed text, at once; the
    /// text is valid inside that call only. A "(" drops what has been collected; a ")" with no "(" since the
    /// last report gives that report again.
    template <class OnReport>
    void feed(std::span<const std::uint8_t> bytes, OnReport&& onReport) {
        for (const std::uint8_t byte : bytes) {
            if (byte == '(') {
                parseStringStarted_ = true;
                length_ = 0;
            } else if (byte == ')') {
                parseStringStarted_ = false;
                onReport(std::string_view(parseString_.data(), length_));
            } else if (parseStringStarted_ && length_ < CAPACITY) {
                parseString_[length_++] = static_cast<char>(byte);
            }
        }
    }

private:
    std::array<char, CAPACITY> parseString_{};
    std::size_t length_ = 0;
    bool parseStringStarted_ = false;
};

} // namespace lumbra
