#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace lumbra {

/// Splits the unit's byte stream into report texts: what is between "(" and ")". One byte is one character.
///
/// A text may have any length. No form reads beyond its first CAPACITY characters, which the compiler checks,
/// so only these are kept, and a text without an end costs no memory. Not thread-safe.
class ReportBuffer {
public:
    static constexpr std::size_t CAPACITY = 64;

    /// Reads `bytes` in order and calls `onReport(std::string_view)` for each completed text, at once. The
    /// text is valid inside that call only. A "(" discards what has been collected. A ")" without a "(" since
    /// the last report repeats that report.
    template <class OnReport>
    void feed(std::span<const std::uint8_t> bytes, OnReport&& onReport) {
        for (const std::uint8_t byte : bytes) {
            if (byte == '(') {
                ++begun_;
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

    /// How many "(" have been read.
    std::uint64_t begun() const { return begun_; }

private:
    std::array<char, CAPACITY> parseString_{};
    std::size_t length_ = 0;
    bool parseStringStarted_ = false;
    std::uint64_t begun_ = 0;
};

} // namespace lumbra
