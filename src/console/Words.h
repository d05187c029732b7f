#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumbra::console {

/// The words of a command line. With an error, `words` are those in front of it; the first is always there.
struct Words {
    std::vector<std::string> words;
    std::string error; ///< a sentence; empty where there is none
};

/// Splits `line` (UTF-8) at its blanks. A word in double quotes may hold blanks or be empty; inside the quotes `\"` and
/// `\\` stand for the second character.
Words splitWords(std::string_view line);

} // namespace lumbra::console
