#include "web/RequestHead.h"

#include "web/HeaderText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lumbra::web {

namespace {

constexpr int BAD_REQUEST = 400;
constexpr int TOO_LARGE = 431;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isTokenCharacter(char c) {
    return isDigit(c) || isLetter(c) || std::string_view("!#$%&'*+-.^_`|~").find(c) != std::string_view::npos;
}

bool isVisible(char c) {
    return c > ' ' && c < '\x7f';
}

/// Of a field's value: bytes beyond ASCII have no meaning, but have always been allowed.
bool isValueCharacter(char c) {
    return isVisible(c) || c == ' ' || c == '\t' || static_cast<unsigned char>(c) >= 0x80;
}

bool isToken(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isTokenCharacter);
}

/// Removes and returns what stands before the first `end`; all of it where there is none.
std::string_view cut(std::string_view& text, std::string_view end) {
    const auto piece = text.substr(0, text.find(end));
    text.remove_prefix(std::min(text.size(), piece.size() + end.size()));
    return piece;
}

/// The fields that matter.
struct Fields {
    using Value = std::optional<std::string_view>;
    Value host, origin, contentLength, transferEncoding, connection, upgrade, key, version, acceptEncoding,
        ifNoneMatch;
};

constexpr std::array<std::pair<std::string_view, Fields::Value Fields::*>, 10> FIELDS{{
    {"host", &Fields::host},
    {"origin", &Fields::origin},
    {"content-length", &Fields::contentLength},
    {"transfer-encoding", &Fields::transferEncoding},
    {"connection", &Fields::connection},
    {"upgrade", &Fields::upgrade},
    {"sec-websocket-key", &Fields::key},
    {"sec-websocket-version", &Fields::version},
    {"accept-encoding", &Fields::acceptEncoding},
    {"if-none-match", &Fields::ifNoneMatch},
}};

/// Stores a line's field. False if the line is none, or its field is there twice.
bool readField(std::string_view line, Fields& fields) {
    const auto colon = line.find(':');
    if (colon == std::string_view::npos || !isToken(line.substr(0, colon)))
        return false;
    const auto value = trimmed(line.substr(colon + 1));
    if (!std::all_of(value.begin(), value.end(), isValueCharacter))
        return false;
    for (const auto& [name, member] : FIELDS)
        if (isSameText(name, line.substr(0, colon))) {
            if (fields.*member)
                return false;
            fields.*member = value;
        }
    return true;
}

/// 16 bytes in base64.
bool isKey(const Fields::Value& key) {
    return key && key->size() == 24 && key->ends_with("==") &&
           std::all_of(key->begin(), key->end() - 2,
                       [](char c) { return isDigit(c) || isLetter(c) || c == '+' || c == '/'; });
}

RequestHead::Upgrade upgradeOf(const Fields& fields, std::string_view method, std::string_view version) {
    if (!hasListed(fields.upgrade.value_or(""), "websocket"))
        return RequestHead::Upgrade::None;
    const bool isRight = method == "GET" && version == "HTTP/1.1" &&
                         hasListed(fields.connection.value_or(""), "upgrade") && isKey(fields.key) &&
                         fields.version == "13";
    return isRight ? RequestHead::Upgrade::WebSocket : RequestHead::Upgrade::Broken;
}

} // namespace

std::variant<IncompleteHead, RequestHead, RefusedHead> parseRequestHead(std::string_view bytes) {
    // A browser that tries TLS first need not wait until its time is up.
    if (!bytes.empty() && !isTokenCharacter(bytes.front()))
        return RefusedHead{BAD_REQUEST};
    auto rest = bytes.substr(0, MAX_HEAD);
    const auto end = rest.find("\r\n\r\n");
    if (end == std::string_view::npos) {
        if (bytes.size() < MAX_HEAD)
            return IncompleteHead{};
        return RefusedHead{TOO_LARGE};
    }
    rest = rest.substr(0, end + 2);

    auto line = cut(rest, "\r\n");
    const auto method = cut(line, " ");
    auto target = cut(line, " ");
    const auto version = line;
    if (!isToken(method) || (version != "HTTP/1.1" && version != "HTTP/1.0"))
        return RefusedHead{BAD_REQUEST};
    const bool isFile = method == "GET" || method == "HEAD"; // other methods have targets of other forms
    if (target.empty() || !std::all_of(target.begin(), target.end(), isVisible) ||
        target.find('#') != std::string_view::npos || (isFile && !target.starts_with('/')))
        return RefusedHead{BAD_REQUEST};

    Fields fields;
    while (!rest.empty())
        if (!readField(cut(rest, "\r\n"), fields))
            return RefusedHead{BAD_REQUEST};
    const auto length = fields.contentLength.value_or("0");
    if ((!fields.host && version == "HTTP/1.1") || (fields.contentLength && fields.transferEncoding) ||
        length.empty() || !std::all_of(length.begin(), length.end(), isDigit))
        return RefusedHead{BAD_REQUEST};
    return RequestHead{
        .method = method,
        .path = cut(target, "?"),
        .host = fields.host.value_or(""),
        .origin = fields.origin,
        .acceptEncoding = fields.acceptEncoding.value_or(""),
        .ifNoneMatch = fields.ifNoneMatch.value_or(""),
        .hasBody = fields.transferEncoding || length.find_first_not_of('0') != std::string_view::npos,
        .upgrade = upgradeOf(fields, method, version),
    };
}

} // namespace lumbra::web
