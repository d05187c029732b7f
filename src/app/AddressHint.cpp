#include "app/AddressHint.h"

#include "toolkit/Translatable.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace lumbra {

namespace {

constexpr std::string_view DIGITS = "0123456789";
constexpr std::string_view HEX_DIGITS = "0123456789abcdefABCDEF";

bool isOneOf(char c, std::string_view set) {
    return set.find(c) != std::string_view::npos;
}

/// A range of characters beyond ASCII, as UTF-8.
struct Range {
    std::string_view first, last;
};
// What is no part of a name.
constexpr Range BLANKS[] = {{"\u00a0", "\u00a0"}, {"\u2000", "\u200a"}, {"\u3000", "\u3000"}};
constexpr Range SIGNS[] = {{"\u0080", "\u00bf"}, {"\u200b", "\u2bff"}, {"\u3001", "\u3003"}};

/// Whether a character of the text is in one of the ranges. UTF-8 sorts as its characters do.
template <std::size_t count>
bool hasOneOf(std::string_view text, const Range (&ranges)[count]) {
    for (std::size_t at = 0; at < text.size(); ++at)
        for (const auto& [first, last] : ranges)
            if (const auto here = text.substr(at, first.size()); here >= first && here <= last)
                return true;
    return false;
}

std::optional<Text> hintForNumbers(std::string_view address) {
    int count = 0;
    bool hasGap = false;
    bool isHigh = false;
    for (std::size_t at = 0; at <= address.size(); ++count) {
        const auto end = std::min(address.find('.', at), address.size());
        const std::string number(address.substr(at, end - at));
        hasGap = hasGap || number.empty();
        isHigh = isHigh || number.size() > 3 || (!number.empty() && std::stoi(number) > 255);
        at = end + 1;
    }
    if (count != 4 || hasGap)
        return Text{LUMBRA_TEXT("System", "An address has four numbers, as in 192.168.1.50.")};
    if (isHigh)
        return Text{LUMBRA_TEXT("System", "Each number of an address is 255 at most.")};
    return std::nullopt;
}

bool isIpv6(std::string_view address) {
    const auto plain = address.substr(0, address.find('%'));
    return std::count(plain.begin(), plain.end(), ':') >= 2 &&
           std::all_of(plain.begin(), plain.end(),
                       [](char c) { return isOneOf(c, HEX_DIGITS) || c == ':' || c == '.'; });
}

bool isName(std::string_view address) {
    const auto isPart = [](char c) {
        return static_cast<unsigned char>(c) >= 0x80 || isOneOf(c, DIGITS) || (c >= 'a' && c <= 'z') ||
               (c >= 'A' && c <= 'Z') || isOneOf(c, "-._");
    };
    return std::all_of(address.begin(), address.end(), isPart) && !hasOneOf(address, SIGNS);
}

} // namespace

std::optional<Text> addressHint(std::string_view address) {
    if (address.empty())
        return Text{LUMBRA_TEXT("System", "Without an address there is no unit to reach.")};
    if (address.find_first_of(" \t\n\v\f\r") != std::string_view::npos || hasOneOf(address, BLANKS))
        return Text{LUMBRA_TEXT("System", "An address has no blanks.")};
    if (std::all_of(address.begin(), address.end(), [](char c) { return isOneOf(c, DIGITS) || c == '.'; }))
        return hintForNumbers(address);
    if (address.find(':') != std::string_view::npos)
        return isIpv6(address)
                   ? std::nullopt
                   : std::optional(Text{LUMBRA_TEXT(
                         "System", "A port can't be given; the unit is always reached on port 23.")});
    if (!isName(address))
        return Text{LUMBRA_TEXT("System", "This is neither an address, as 192.168.1.50, nor a host's name.")};
    return std::nullopt;
}

} // namespace lumbra
