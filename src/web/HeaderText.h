#pragma once

#include <string>
#include <string_view>

namespace lumbra::web {

/// `text` without the blanks and tabs around it. This and all below: any thread.
std::string_view trimmed(std::string_view text);

/// `text` with its ASCII letters in lower case.
std::string lowerCase(std::string_view text);

/// True if the texts differ at most in the case of ASCII letters.
bool isSameText(std::string_view a, std::string_view b);

/// True if `list`, texts between commas, has `name` in any case.
bool hasListed(std::string_view list, std::string_view name);

/// True if an Accept-Encoding field allows `coding` by its name (RFC 9110, section 12.5.3).
bool acceptsCoding(std::string_view field, std::string_view coding);

} // namespace lumbra::web
