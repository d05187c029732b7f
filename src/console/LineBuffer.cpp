#include "console/LineBuffer.h"

#include <algorithm>
#include <utility>

namespace lumbra::console {

using script::Line;

void LineBuffer::append(std::string_view bytes) {
    bytes_ += bytes;
}

void LineBuffer::end() {
    ended_ = true;
}

std::optional<Line> LineBuffer::next() {
    const auto found = bytes_.find('\n', searched_);
    const bool whole = found != std::string::npos;
    const bool last = !whole && ended_ && (!bytes_.empty() || !beginning_.empty());
    if (!whole && !last) {
        searched_ = bytes_.size();
        if (bytes_.size() > Line::MAX_LENGTH + 1) {
            if (beginning_.empty())
                beginning_ = bytes_.substr(0, Line::MAX_LENGTH);
            bytes_.clear();
            searched_ = 0;
        }
        return std::nullopt;
    }
    const auto length = whole ? found : bytes_.size();
    Line line{bytes_.substr(0, length)};
    bytes_.erase(0, whole ? length + 1 : length);
    searched_ = 0;
    if (!line.text.empty() && line.text.back() == '\r')
        line.text.pop_back();
    if (!beginning_.empty())
        line = {std::exchange(beginning_, {}), true};
    else if (line.text.size() > Line::MAX_LENGTH)
        line = {line.text.substr(0, Line::MAX_LENGTH), true};
    return line;
}

} // namespace lumbra::console
