#include "text/Utf8.h"

#include <rapidjson/encodings.h>
#include <rapidjson/memorystream.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace lumbra {

namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

/// Calls `character(code point, its bytes)` for each character and `broken()` for each invalid byte.
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

void appendEscape(std::string& text, const char* format, unsigned codePoint) {
    char escape[8];
    const int length = std::snprintf(escape, sizeof escape, format, codePoint);
    text.append(escape, static_cast<std::size_t>(length));
}

std::string escaped(std::string_view text, std::string_view alsoEscaped) {
    std::string result;
    decode(
        text,
        [&](unsigned codePoint, std::string_view bytes) {
            if (isObeyedByTerminals(codePoint)) {
                appendEscape(result, codePoint < 0x100 ? "\\x%02x" : "\\u%04x", codePoint);
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

bool isObeyedByTerminals(unsigned codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F) || codePoint == 0x061C ||
           (codePoint >= 0x200B && codePoint <= 0x200F) || (codePoint >= 0x2028 && codePoint <= 0x202E) ||
           (codePoint >= 0x2060 && codePoint <= 0x2069) || codePoint == 0xFEFF;
}

bool isUtf8(std::string_view text) {
    bool valid = true;
    decode(
        text, [](unsigned, std::string_view) {}, [&] { valid = false; });
    return valid;
}

std::string escapedForTerminal(std::string_view text) {
    return escaped(text, {});
}

std::string escapedInJson(std::string_view json, bool (*isEscaped)(unsigned codePoint)) {
    // Outside strings JSON is ASCII.
    if (std::all_of(json.begin(), json.end(), [](char c) { return static_cast<unsigned char>(c) < 0x7F; }))
        return std::string(json);
    std::string result;
    const auto add = [&](unsigned codePoint, std::string_view bytes) {
        if (codePoint < 0x7F || !isEscaped(codePoint)) {
            result += bytes;
        } else if (codePoint < 0x10000) {
            appendEscape(result, "\\u%04x", codePoint);
        } else { // a pair of UTF-16 surrogates
            appendEscape(result, "\\u%04x", 0xD7C0 + (codePoint >> 10));
            appendEscape(result, "\\u%04x", 0xDC00 + (codePoint & 0x3FF));
        }
    };
    decode(json, add, [&] { add(0xFFFD, REPLACEMENT); });
    return result;
}

std::string quotedForTerminal(std::string_view text) {
    return '"' + escaped(text, "\"\\") + '"';
}

} // namespace lumbra
