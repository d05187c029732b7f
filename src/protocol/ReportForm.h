#pragma once

#include "protocol/Name.h"
#include "protocol/ReportBuffer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace lumbra {

// A form is the pattern of a report, written as the report looks. Capital letters and digits stand for themselves, and
// values for
//
//     #        a digit
//     ##       one or two digits, as many as there are; likewise ### and so on
//     -##      the same, with or without a minus sign before them
//     [1-7]    a digit from 1 to 7; a flag is [0-1]
//     "*"      a name: 1 to 16 characters other than CR and LF, between double quotes. It may hold double
//              quotes itself; the longest match counts
//
// A form begins with the unit, "U#". A number is followed by a letter or the end, a name by the end, so that matching
// never backtracks. A form matches a prefix: the text may continue after it.

/// One character, number or name of a form.
struct FormPart {
    enum class Kind { Character, Number, Name };

    Kind kind = Kind::Character;
    char low = 0;                ///< the character; the lowest digit of a number
    char high = 0;               ///< the highest digit of a number
    bool negative = false;       ///< a number that may have a minus sign
    std::size_t most = 1;        ///< the largest number of digits
    std::size_t numberIndex = 0; ///< the position among the numbers of the form; the unit is 0

    bool operator==(const FormPart&) const = default;
};

/// A form, parsed at compile time. A text that is not a form does not compile.
struct Form {
    static constexpr std::size_t MAX_NUMBERS = 5;

    std::array<FormPart, 16> parts{};
    std::size_t size = 0;
    /// The number of parts up to and including the item's number. If no number follows the unit, these are
    /// the two parts of the unit.
    std::size_t head = 2;

    consteval Form(const char* text) {
        if (!read(text))
            throw std::invalid_argument("not a form");
    }

    /// Whether `text` is a form that never reads beyond what the report buffer keeps.
    static constexpr bool isForm(std::string_view text) { return Form().read(text); }

    constexpr bool sharesHead(const Form& other) const {
        return head == other.head && std::equal(parts.begin(), parts.begin() + head, other.parts.begin());
    }

private:
    constexpr Form() = default;

    constexpr bool read(std::string_view text) {
        using enum FormPart::Kind;
        if (!text.starts_with("U#") || text.size() < 3 || text[2] == '#')
            return false;
        std::size_t numbers = 0;
        std::size_t longest = 0;
        while (!text.empty()) {
            FormPart part;
            const auto length = readPart(text, part);
            const auto before = size == 0 ? Character : parts[size - 1].kind;
            if (length == 0 || size == parts.size() || before == Name ||
                (before == Number && !isLetter(text[0])))
                return false;
            longest += part.kind == Name ? Name::MAX_CHARACTERS + 2 : part.most + (part.negative ? 1 : 0);
            parts[size++] = part;
            if (part.kind == Number) {
                parts[size - 1].numberIndex = numbers++;
                if (numbers == 2)
                    head = size;
            }
            text.remove_prefix(length);
        }
        return numbers <= MAX_NUMBERS && longest <= ReportBuffer::CAPACITY;
    }
    /// Parses the part at the start of `text` and returns its length in `text`, or 0 if there is none.
    static constexpr std::size_t readPart(std::string_view text, FormPart& part) {
        using enum FormPart::Kind;
        if (text.starts_with(R"("*")")) {
            part.kind = Name;
            return 3;
        }
        if (text[0] == '[') {
            if (text.size() < 5 || text[2] != '-' || text[4] != ']')
                return 0;
            part = {Number, text[1], text[3]};
            return isDigit(part.low) && isDigit(part.high) && part.low < part.high ? 5 : 0;
        }
        if (text[0] == '#' || text[0] == '-') {
            const std::size_t sign = text[0] == '-' ? 1 : 0;
            const auto length = std::min(text.find_first_not_of('#', sign), text.size());
            part = {Number, '0', '9', sign == 1, length - sign};
            return part.most >= 1 && part.most <= 9 ? length : 0;
        }
        part.low = text[0];
        return isLetter(part.low) || isDigit(part.low) ? 1 : 0;
    }
    static constexpr bool isLetter(char character) { return character >= 'A' && character <= 'Z'; }
    static constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }
};

} // namespace lumbra
