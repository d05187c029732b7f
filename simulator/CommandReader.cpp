#include "simulator/CommandReader.h"

namespace lumbra::sim {

std::optional<CommandReader::Command> CommandReader::take(char byte) {
    if (byte == '[') {
        inside_ = true;
        text_.clear();
        return std::nullopt;
    }
    if (!inside_)
        return std::nullopt;
    if (byte != ']') {
        text_ += byte;
        inside_ = text_.size() <= LONGEST_TEXT;
        return std::nullopt;
    }
    inside_ = false;
    if (text_.size() < 2 || text_[0] != 'U' || text_[1] < '0' || text_[1] > '9')
        return Command{-1, text_};
    return Command{text_[1] - '0', text_.substr(2)};
}

} // namespace lumbra::sim
