#pragma once

#include "protocol/Name.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace lumbra {

/// What every report pattern begins with; its group 1 is the unit's digit.
inline constexpr std::string_view UNIT_PREFIX = "^U([0-9])";

/// How many characters a match of `pattern` can take at the most. It knows what the report patterns are made
/// of: literals, "." and classes, each with an optional "?" or "{m,n}", and groups.
constexpr std::size_t longestMatch(std::string_view pattern) {
    std::size_t length = 0;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        switch (pattern[at]) {
        case '^':
        case '(':
        case ')':
        case '?':
            break;
        case '[':
            at = pattern.find(']', at);
            ++length;
            break;
        case '{': {
            std::size_t most = 0;
            for (at = pattern.find(',', at) + 1; pattern[at] != '}'; ++at)
                most = 10 * most + static_cast<std::size_t>(pattern[at] - '0');
            length += most - 1;
            break;
        }
        default:
            ++length;
        }
    }
    return length;
}

/// The captured groups of one match, read by their numbers. Valid while the matched text is, and until the
/// next match.
class Captures {
public:
    Captures(std::string_view text, std::span<const std::size_t> offsets) : text_(text), offsets_(offsets) {}

    /// How many groups there are; the first is group 1.
    std::size_t count() const { return offsets_.size() / 2 - 1; }
    std::string_view text(std::size_t group) const {
        assert(2 * group + 1 < offsets_.size());
        return text_.substr(offsets_[2 * group], offsets_[2 * group + 1] - offsets_[2 * group]);
    }
    /// A whole number with an optional sign; "-0" is 0. The patterns let nothing else through.
    int number(std::size_t group) const {
        const auto digits = text(group);
        const bool negative = digits.front() == '-';
        int value = 0;
        for (const char digit : digits.substr(negative ? 1 : 0))
            value = 10 * value + (digit - '0');
        return negative ? -value : value;
    }
    /// A number that counts from 1 on the wire, as an index that counts from 0; -1 and beyond the end are
    /// possible.
    int index(std::size_t group) const { return number(group) - 1; }
    bool flag(std::size_t group) const { return number(group) != 0; }
    Name name(std::size_t group) const { return Name::fromLatin1(text(group)); }

private:
    std::string_view text_;
    std::span<const std::size_t> offsets_;
};

/// A screen's report patterns, compiled into one for each letter that may follow the unit's digit: PCRE2 with
/// its just-in-time compiler. The first pattern in order that matches at the start of a text decides; what
/// follows the matched part is ignored. "." is any byte but CR and LF; a byte is a character. Matching
/// allocates nothing. Main thread only.
class PatternSet {
public:
    static constexpr std::uint32_t MAX_GROUPS = 5;

    /// Each pattern begins with UNIT_PREFIX, has at most MAX_GROUPS groups, and goes on with a letter. A
    /// pattern that does not compile is a programming error.
    explicit PatternSet(std::span<const std::string_view> patterns);

    /// The index of the pattern that `text` matches, and its groups; -1 where it matches none.
    struct Match {
        int pattern;
        Captures captures;
    };
    Match match(std::string_view text) const;

private:
    struct Family;
    struct Compiled;
    struct Release {
        void operator()(Compiled* compiled) const;
    };
    std::unique_ptr<Compiled, Release> compiled_;
};

} // namespace lumbra
