#pragma once

#include "script/Line.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lumbra::console {

/// Splits bytes into lines. A line ends with LF or CR LF, the last one also at the end of the input. Only the
/// beginning of a line longer than Line::MAX_LENGTH is kept.
class LineBuffer {
public:
    void append(std::string_view bytes);
    /// Ends the input: what remains is the last line.
    void end();
    /// Returns and removes the next complete line, if any.
    std::optional<script::Line> next();

private:
    std::string bytes_;
    std::size_t searched_ = 0; ///< no line ends before this
    std::string beginning_;    ///< of a line that is too long, whose end has not come yet
    bool ended_ = false;
};

} // namespace lumbra::console
