// Any bytes as the beginning of a connection: the parser of request heads takes them in one piece, then in growing pieces
// as a socket hands them over. The whole input is what was received.

#include "Check.h"
#include "Target.h"
#include "web/RequestHead.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <variant>

using namespace lumbra;
using namespace lumbra::web;

namespace {

bool isInside(std::string_view part, std::string_view whole) {
    return part.empty() ||
           (part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size());
}

bool hasControl(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7f;
    });
}

} // namespace

FUZZ_TARGET(web)(Input input) {
    const auto size = input.size();
    const auto bytes = input.take(size);
    const auto whole = parseRequestHead(bytes);
    const auto end = bytes.substr(0, MAX_HEAD).find("\r\n\r\n");
    if (const auto* head = std::get_if<RequestHead>(&whole)) {
        check(end != std::string_view::npos, "a head without its end");
        for (const auto text : {head->method, head->path, head->host, head->origin.value_or(""),
                                head->acceptEncoding, head->ifNoneMatch}) {
            check(isInside(text, bytes.substr(0, end)), "a text from outside the head");
            check(!hasControl(text), "a control character got through", text);
        }
        if (head->method == "GET" || head->method == "HEAD")
            check(head->path.starts_with('/') && head->path.find_first_of("?# ") == std::string_view::npos,
                  "no path", head->path);
        check(head->upgrade != RequestHead::Upgrade::WebSocket ||
                  (head->method == "GET" && !head->path.empty()),
              "a WebSocket by another method");
        // What follows the head belongs to somebody else.
        check(std::holds_alternative<RequestHead>(parseRequestHead(bytes.substr(0, end + 4))),
              "the bytes behind the head matter");
    } else if (const auto* refused = std::get_if<RefusedHead>(&whole)) {
        check(refused->status == 400 || refused->status == 431, "an unknown status");
        check(refused->status != 431 || size >= MAX_HEAD, "a head that is not large is too large");
    } else {
        check(size < MAX_HEAD && end == std::string_view::npos, "waits for an end that is there");
    }
    // However it is cut, it is understood only as a whole, and as the same.
    for (std::size_t length = 0; length < std::min(size, end); length += 1 + size / 16) {
        const auto part = parseRequestHead(bytes.substr(0, length));
        check(!std::holds_alternative<RequestHead>(part), "half a head is understood");
        check(std::holds_alternative<IncompleteHead>(part) || std::holds_alternative<RefusedHead>(whole),
              "half a head is refused, and not the whole");
    }
}
