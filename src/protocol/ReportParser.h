#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportForm.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

namespace lumbra {

/// The values of a report, captured by the form that it matches.
struct Captures {
    /// The numbers by their position in the form: 0 is the unit, 1 usually the item. "-0" is 0.
    std::array<int, Form::MAX_NUMBERS> numbers{};
    /// The name as the unit's bytes. Valid as long as the report text.
    std::string_view nameBytes;

    int number(std::size_t place) const { return numbers[place]; }
    /// A number that is 1-based on the wire, as a 0-based index. It may be -1 or beyond the last item.
    int index(std::size_t place) const { return numbers[place] - 1; }
    bool flag(std::size_t place) const { return numbers[place] != 0; }
    Name name() const { return Name::fromLatin1(nameBytes); }
};

/// A row of a family's table: a form, and the function that makes a typed report of its values. Report is the
/// family's variant.
template <class Report>
struct ReportRow {
    Form form;
    Report (*decode)(const Captures& captures);

    // The decoders of most rows: an item and one more value, as the report type Kind.
    template <class Kind>
    static Report number(const Captures& c) {
        return Kind{c.index(1), c.number(2)};
    }
    template <class Kind>
    static Report index(const Captures& c) {
        return Kind{c.index(1), c.index(2)};
    }
    template <class Kind>
    static Report flag(const Captures& c) {
        return Kind{c.index(1), c.flag(2)};
    }
    template <class Kind>
    static Report name(const Captures& c) {
        return Kind{c.index(1), c.name()};
    }
    static Report end(const Captures&) { return reports::EndOfState{}; }
};

/// A typed report, and the digit of the unit that sent it.
template <class Report>
struct Parsed {
    int unit;
    Report report;
};

namespace detail {

/// The read position in a report text.
struct Cursor {
    const char* at = nullptr;
    const char* end = nullptr;

    /// Whether the next character is between `low` and `high`.
    bool sees(char low, char high) const { return at != end && *at >= low && *at <= high; }
    bool skip(char character) {
        const bool there = sees(character, character);
        at += there ? 1 : 0;
        return there;
    }
};

/// Reads one part of a form. False if the text does not match.
template <FormPart PART>
bool take(Cursor& in, Captures& captures) {
    if constexpr (PART.kind == FormPart::Kind::Character) {
        return in.skip(PART.low);
    } else if constexpr (PART.kind == FormPart::Kind::Number) {
        const bool negative = PART.negative && in.skip('-');
        int value = 0;
        std::size_t digits = 0;
        for (; digits < PART.most && in.sees(PART.low, PART.high); ++digits)
            value = 10 * value + (*in.at++ - '0');
        captures.numbers[PART.numberIndex] = negative ? -value : value;
        return digits > 0;
    } else {
        if (!in.skip('"'))
            return false;
        const char* const begin = in.at;
        const char* close = begin;
        for (std::size_t length = 0; length <= Name::MAX_CHARACTERS; ++length, ++in.at) {
            if (in.at == in.end || *in.at == '\r' || *in.at == '\n')
                break;
            if (*in.at == '"')
                close = in.at;
        }
        captures.nameBytes = {begin, close};
        return close != begin;
    }
}

/// Reads the parts FIRST to LAST - 1 of a row's form.
template <const auto& TABLE, std::size_t ROW, std::size_t FIRST, std::size_t LAST>
bool takeParts(Cursor& in, Captures& captures) {
    return [&]<std::size_t... PART>(std::index_sequence<PART...>) {
        return (take<TABLE[ROW].form.parts[FIRST + PART]>(in, captures) && ...);
    }
    (std::make_index_sequence<LAST - FIRST>());
}

} // namespace detail

/// Parses a report text (the unit's bytes) by the first row that matches it; nothing if none does. TABLE is a
/// constexpr array of ReportRow<Report>, in matching order. Ranges are not checked. The compiler turns the
/// forms into comparisons: there is no state, allocation or recursion. Any thread.
template <class Report, const auto& TABLE>
std::optional<Parsed<Report>> parseReport(std::string_view text) {
    Captures captures;
    std::optional<Parsed<Report>> parsed;
    detail::Cursor behindHead{};
    bool headFits = false;
    const auto tryRow = [&]<std::size_t ROW>() {
        constexpr const Form& form = TABLE[ROW].form;
        // Neighbouring rows usually begin alike, so the unit and the item are read once for all of them.
        if constexpr (ROW == 0 || !form.sharesHead(TABLE[ROW - (ROW > 0)].form)) {
            behindHead = {text.data(), text.data() + text.size()};
            headFits = detail::takeParts<TABLE, ROW, 0, form.head>(behindHead, captures);
        }
        auto in = behindHead;
        if (!headFits || !detail::takeParts<TABLE, ROW, form.head, form.size>(in, captures))
            return false;
        parsed.emplace(Parsed<Report>{captures.number(0), TABLE[ROW].decode(captures)});
        return true;
    };
    [&]<std::size_t... ROW>(std::index_sequence<ROW...>) {
        static_cast<void>((tryRow.template operator()<ROW>() || ...));
    }
    (std::make_index_sequence<std::size(TABLE)>());
    return parsed;
}

} // namespace lumbra
