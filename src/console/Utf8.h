#pragma once

#include <string>
#include <string_view>

namespace lumbra::console {

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

/// A line of JSON with the same characters written as JSON escapes (`\u009b`) where `escapedForTerminal` would escape
/// them. `json` is valid UTF-8 whose control characters below U+0020 are escaped already.
std::string escapedInJson(std::string_view json);

} // namespace lumbra::console
