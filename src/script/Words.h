#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumbra::script {

/// The words of a command line. If there is an error, the last word is the one that has it.
struct Words {
    std::vector<std::string> words;
    std::string error; ///< a sentence; empty on success
};

/// Splits `line` (UTF-8) at blanks. A word in double quotes may contain blanks or be empty; inside the quotes
/// `\"` is a quote and `\\` a backslash.
Words splitWords(std::string_view line);

} // namespace lumbra::script
