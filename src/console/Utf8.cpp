#include "console/Utf8.h"

#include <rapidjson/encodings.h>
#include <rapidjson/memorystream.h>

#include <cstddef>
#include <cstdio>

namespace lumbra {

namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

/// Calls `character(code point, its bytes)` for each character and `broken()` for each byte that is not
/// UTF-8.
template <class Character, class Broken>
void decode(std::string_view text, Character character, Broken broken) {
    while (!text.empty()) {
        rapidjson::MemoryStream stream(text.data(), text.size());
        unsigned codePoint = 0;
        const bool valid = rapidjson::UTF8<>::Decode(stream, &codePoint);
        const std::size_t length = valid ? stream.Tell() : 1;
        if (valid)
            character(codePoint, text.substr(0, length));
        else
            broken();
        text.remove_prefix(length);
    }
}

bool isObeyedByTerminals(unsigned codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F) || codePoint == 0x061C ||
           (codePoint >= 0x200B && codePoint <= 0x200F) || (codePoint >= 0x2028 && codePoint <= 0x202E) ||
           (codePoint >= 0x2060 && codePoint <= 0x2069) || codePoint == 0xFEFF;
}

std::string escaped(std::string_view text, std::string_view alsoEscaped) {
    std::string result;
    result.reserve(text.size());
    decode(
        text,
        [&](unsigned codePoint, std::string_view bytes) {
            if (isObeyedByTerminals(codePoint)) {
                char escape[8];
                const int length = std::snprintf(escape, sizeof escape,
                                                 codePoint < 0x100 ? "\\x%02x" : "\\u%04x", codePoint);
                result.append(escape, static_cast<std::size_t>(length));
                return;
            }
            if (alsoEscaped.find(bytes) != std::string_view::npos)
                result += '\\';
            result += bytes;
        },
        [&] { result += REPLACEMENT; });
    return result;
}

} // namespace

bool isUtf8(std::string_view text) {
    bool valid = true;
    decode(
        text, [](unsigned, std::string_view) {}, [&] { valid = false; });
    return valid;
}

std::string toValidUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    decode(
        text, [&](unsigned, std::string_view bytes) { result += bytes; }, [&] { result += REPLACEMENT; });
    return result;
}

std::string escapedForTerminal(std::string_view text) {
    return escaped(text, {});
}

std::string quotedForTerminal(std::string_view text) {
    return '"' + escaped(text, "\"\\") + '"';
}

} // namespace lumbra
