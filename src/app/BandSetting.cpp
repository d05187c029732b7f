#include "app/BandSetting.h"

#include "model/Outputs.h"

#include <charconv>
#include <cmath>
#include <initializer_list>
#include <string>
#include <system_error>
#include <utility>

namespace lumbra {

namespace {

/// The lowest that the slider has.
constexpr std::int64_t LOWEST_FREQUENCY = 20;

/// A number and the word behind it, in lower case.
struct Typed {
    double number;
    std::string unit;
};

std::optional<Typed> read(std::string_view text) {
    std::string plain(text);
    // What languages write otherwise: decimal commas, minus signs, spaces.
    for (const auto& [from, to] : std::initializer_list<std::pair<std::string_view, std::string_view>>{
             {",", "."}, {"\u2212", "-"}, {"\u00a0", ""}, {"\u202f", ""}, {" ", ""}, {"+", ""}})
        for (std::size_t at = 0; (at = plain.find(from, at)) != std::string::npos; at += to.size())
            plain.replace(at, from.size(), to);
    for (auto& c : plain)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    double number = 0;
    const auto* const end = plain.data() + plain.size();
    const auto [rest, error] = std::from_chars(plain.data(), end, number, std::chars_format::fixed);
    return error == std::errc{} ? std::optional(Typed{number, {rest, end}}) : std::nullopt;
}

std::optional<std::int64_t> rounded(double number, std::int64_t lowest, std::int64_t highest) {
    const auto whole = std::round(number);
    return whole >= static_cast<double>(lowest) && whole <= static_cast<double>(highest)
               ? std::optional(static_cast<std::int64_t>(whole))
               : std::nullopt;
}

} // namespace

std::optional<std::int64_t> typedFrequency(std::string_view text) {
    const auto typed = read(text);
    if (!typed)
        return std::nullopt;
    const bool kilo = typed->unit == "k" || typed->unit == "khz" ||
                      (typed->unit.empty() && typed->number < LOWEST_FREQUENCY);
    if (!kilo && !typed->unit.empty() && typed->unit != "hz")
        return std::nullopt;
    return rounded(typed->number * (kilo ? 1000 : 1), LOWEST_FREQUENCY, Outputs::FREQ_MAX);
}

std::optional<std::int64_t> typedGain(std::string_view text) {
    const auto typed = read(text);
    if (!typed || !(typed->unit.empty() || typed->unit == "db"))
        return std::nullopt;
    return rounded(typed->number, Outputs::GAIN_MIN, Outputs::GAIN_MAX);
}

} // namespace lumbra
