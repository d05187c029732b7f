#pragma once

#include <string>

namespace lumbra::sim {

/// `text` with every byte but printable ASCII written as \xNN.
inline std::string printable(const std::string& text) {
    static constexpr char DIGITS[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte <= '~')
            result += c;
        else
            result += {'\\', 'x', DIGITS[byte >> 4], DIGITS[byte & 15]};
    }
    return result;
}

} // namespace lumbra::sim
