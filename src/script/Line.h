#pragma once

#include <cstddef>
#include <string>

namespace lumbra::script {

/// One line of a script, without its end.
struct Line {
    /// The longest line that is carried out, in bytes.
    static constexpr std::size_t MAX_LENGTH = 65536;

    std::string text;
    bool tooLong = false; ///< `text` is only the beginning
};

} // namespace lumbra::script
