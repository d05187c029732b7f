#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lumbra::console {

/// One line of the input, without its end.
struct Line {
    std::string text;
    bool tooLong = false; ///< `text` is only its beginning
};

/// Cuts bytes into lines. A line ends with LF or CR LF, the last one also with the end of the input. Of a
/// line that is too long only the beginning is kept.
class LineBuffer {
public:
    static constexpr std::size_t MAX_LINE = 65536;

    void append(std::string_view bytes);
    /// No more bytes will come: what remains is a line.
    void end();
    /// The next line, if a whole one is there.
    std::optional<Line> next();

private:
    std::string bytes_;
    std::size_t searched_ = 0; ///< no line ends before this
    std::string beginning_;    ///< of a line that is too long, whose end has not come yet
    bool ended_ = false;
};

} // namespace lumbra::console
