#pragma once

#include <string>
#include <string_view>

namespace lumbra {

/// True if all of `text` is valid UTF-8 (RFC 3629). This and all below: any thread.
bool isUtf8(std::string_view text);

/// True for what a terminal would obey or hide: control characters, line separators and characters that change the
/// writing direction.
bool isObeyedByTerminals(unsigned codePoint);

/// `text` with escapes (`\x1b`, `\u202e`) for the characters that terminals obey. Invalid bytes become U+FFFD.
std::string escapedForTerminal(std::string_view text);

/// `escapedForTerminal` in double quotes, with quotes and backslashes escaped: a word that `splitWords`
/// parses back.
std::string quotedForTerminal(std::string_view text);

/// `json` with JSON escapes (`\u009b`) for the characters from U+007F on that `isEscaped` names. Those below U+0020
/// are escaped already. Invalid bytes become U+FFFD.
std::string escapedInJson(std::string_view json, bool (*isEscaped)(unsigned codePoint) = isObeyedByTerminals);

} // namespace lumbra
