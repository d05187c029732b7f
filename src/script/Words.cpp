#include "script/Words.h"

#include "text/Utf8.h"

#include <cstddef>

namespace lumbra::script {

namespace {

constexpr std::string_view BLANKS = " \t";

} // namespace

Words splitWords(std::string_view line) {
    Words result;
    if (!isUtf8(line))
        result.error = "this line is not UTF-8 text";
    std::size_t position = 0;
    while ((position = line.find_first_not_of(BLANKS, position)) != std::string_view::npos) {
        auto& word = result.words.emplace_back();
        if (line[position] != '"') {
            const auto end = std::min(line.find_first_of(BLANKS, position), line.size());
            word = line.substr(position, end - position);
            position = end;
            if (word.find('"') != std::string::npos && result.error.empty())
                result.error = "a quote inside a word: put the whole word in quotes, and \\\" for the quote";
        } else {
            bool closed = false;
            for (++position; position < line.size() && !closed; ++position) {
                const char next = position + 1 < line.size() ? line[position + 1] : '\0';
                if (line[position] == '\\' && (next == '"' || next == '\\'))
                    word += line[++position];
                else if (line[position] == '"')
                    closed = true;
                else
                    word += line[position];
            }
            if (!closed && result.error.empty())
                result.error = "a quote is opened and not closed";
            else if (position < line.size() && BLANKS.find(line[position]) == std::string_view::npos &&
                     result.error.empty())
                result.error = "a blank is missing behind a closing quote";
        }
        if (!result.error.empty())
            break;
    }
    return result;
}

} // namespace lumbra::script
