#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lumbra {

/// The bytes of one run, taken from the front.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : bytes_(reinterpret_cast<const char*>(data), size) {}

    bool empty() const { return bytes_.empty(); }
    std::size_t size() const { return bytes_.size(); }
    /// At most `count` bytes.
    std::string_view take(std::size_t count) {
        const auto taken = bytes_.substr(0, count);
        bytes_.remove_prefix(taken.size());
        return taken;
    }
    /// 0 where nothing is left.
    std::uint8_t byte() {
        const auto byte = take(1);
        return byte.empty() ? 0 : static_cast<std::uint8_t>(byte[0]);
    }
    /// A number from 0 to `count` - 1: the digit, where it is one below `count`.
    int number(int count) { return static_cast<std::uint8_t>(byte() - '0') % count; }
    /// Up to the next `end`, which is taken too and left out.
    std::string_view until(char end) {
        const auto text = bytes_.substr(0, bytes_.find(end));
        take(text.size() + 1);
        return text;
    }

private:
    std::string_view bytes_;
};

} // namespace lumbra
