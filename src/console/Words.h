#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumbra {

/// A command line taken apart. With an error, `words` are those before it, the first one at least in part.
struct Words {
    std::vector<std::string> words;
    std::string error; ///< a sentence; empty where there is none
};

/// Splits `line` (UTF-8) at its blanks. A word in double quotes may hold blanks and nothing; inside the
/// quotes `\"` and
/// `\\` stand for the second character.
Words splitWords(std::string_view line);

} // namespace lumbra
