#pragma once

#include <string>
#include <string_view>

namespace lumbra {

/// Whether `text` is UTF-8 throughout (RFC 3629).
bool isUtf8(std::string_view text);

/// `text` with U+FFFD in place of each byte that is not UTF-8.
std::string toValidUtf8(std::string_view text);

/// `text` with everything that a terminal would obey or hide written as an escape (`\x1b`, `\u202e`): control
/// characters, line separators and marks that turn the direction of writing. Bytes that are not UTF-8 become
/// U+FFFD.
std::string escapedForTerminal(std::string_view text);

/// `escapedForTerminal` in double quotes, with the quotes and backslashes of `text` escaped: a word as the
/// console reads it.
std::string quotedForTerminal(std::string_view text);

} // namespace lumbra
