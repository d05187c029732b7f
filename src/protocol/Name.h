#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <string_view>

namespace lumbra {

/// A name from a report: up to 16 characters, as UTF-8. It is stored in place, so that a report allocates
/// nothing.
class Name {
public:
    static constexpr std::size_t MAX_CHARACTERS = 16;

    Name() = default;

    /// Converts the unit's bytes, at most 16. Each byte is the character of that code point (ISO 8859-1); a
    /// character from U+0080 to U+00FF becomes two bytes of UTF-8 (RFC 3629, section 3).
    static Name fromLatin1(std::string_view bytes) {
        assert(bytes.size() <= MAX_CHARACTERS);
        Name name;
        for (const char character : bytes) {
            const auto byte = static_cast<unsigned char>(character);
            if (byte < 0x80) {
                name.utf8_[name.length_++] = character;
            } else {
                name.utf8_[name.length_++] = static_cast<char>(0xC0 | (byte >> 6));
                name.utf8_[name.length_++] = static_cast<char>(0x80 | (byte & 0x3F));
            }
        }
        return name;
    }

    std::string_view view() const { return {utf8_.data(), length_}; }

private:
    std::array<char, 2 * MAX_CHARACTERS> utf8_{};
    std::size_t length_ = 0;
};

} // namespace lumbra
