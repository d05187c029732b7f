#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumbra {

/// A sentence for people (UTF-8): a pattern in English that a front end translates, and the arguments that stand
/// for its %1 to %9, such as an address, that it does not.
struct Text {
    std::string_view pattern; ///< marked with LUMBRA_TEXT; it outlives the text
    std::vector<std::string> arguments{};

    bool operator==(const Text&) const = default;

    /// `words`, the pattern or its translation, with the arguments in place of %1 to %9. A "%1" in
    /// an argument stays as it is.
    std::string filled(std::string_view words) const {
        std::string text;
        for (std::size_t at = 0; at < words.size(); ++at) {
            const auto number = words[at] == '%' && at + 1 < words.size()
                                    ? static_cast<std::size_t>(words[at + 1]) - '1'
                                    : arguments.size();
            if (number < arguments.size()) {
                text += arguments[number];
                ++at;
            } else {
                text += words[at];
            }
        }
        return text;
    }
    /// In English.
    std::string english() const { return filled(pattern); }
};

} // namespace lumbra
