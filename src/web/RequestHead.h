#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

namespace lumbra::web {

/// The head of an HTTP request, as far as it matters here. The texts are parts of the bytes that were parsed.
struct RequestHead {
    /// What it asks for besides a file.
    enum class Upgrade : std::uint8_t {
        None,
        Broken,    ///< a WebSocket, but not in the way of RFC 6455
        WebSocket, ///< a WebSocket
    };

    std::string_view method;
    std::string_view path; ///< without the query; not decoded
    std::string_view host;
    std::optional<std::string_view> origin;
    std::string_view acceptEncoding;
    std::string_view ifNoneMatch;
    bool hasBody = false;
    Upgrade upgrade = Upgrade::None;
};

/// More bytes are needed.
struct IncompleteHead {};
/// The request must be refused with this status.
struct RefusedHead {
    int status;
};

/// The largest head, with the empty line at its end, in bytes.
inline constexpr std::size_t MAX_HEAD = 8192;

/// Parses the head of an HTTP/1.0 or HTTP/1.1 request (RFC 9112), which begins with `bytes`. What RFC 9112 lets a
/// server refuse is refused: other line ends than CR LF, folded lines, absolute targets. So is a field of
/// `RequestHead` that is there twice: two readers could understand it in two ways. Any thread.
std::variant<IncompleteHead, RequestHead, RefusedHead> parseRequestHead(std::string_view bytes);

} // namespace lumbra::web
