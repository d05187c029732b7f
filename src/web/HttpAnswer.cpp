#include "web/HttpAnswer.h"

#include "web/HeaderText.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <array>
#include <cassert>
#include <string>

namespace lumbra::web {

namespace {

constexpr auto ALWAYS =
    "X-Content-Type-Options: nosniff\r\n"
    "Referrer-Policy: no-referrer\r\n"
    "Content-Security-Policy: default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
    "connect-src 'self'; manifest-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'\r\n"
    "Cache-Control: no-cache\r\n"
    "Connection: close\r\n";

struct Refusal {
    int status;
    const char* reason;
    const char* sentence;
    const char* more = ""; ///< fields
};
constexpr std::array<Refusal, 8> REFUSALS{{
    {400, "Bad Request", "This is no request that can be answered here."},
    {403, "Forbidden", "Only the page of this server may open a WebSocket here."},
    {404, "Not Found", "There is nothing here. The remote is at /."},
    {405, "Method Not Allowed", "Only GET and HEAD are answered.", "Allow: GET, HEAD\r\n"},
    {408, "Request Timeout", "The request took too long."},
    {421, "Misdirected Request",
     "The remote is not served under this name. Open it by this machine's address or name, or start "
     "lumbra-remote with --web-name and the name."},
    {431, "Request Header Fields Too Large", "The head of a request may have 8 KiB."},
    {503, "Service Unavailable", "As many remotes are open as there may be. Close one, and try again."},
}};

QByteArray number(qsizetype value) {
    return QByteArray::number(static_cast<qlonglong>(value));
}

QByteArray headOf(int status, const char* reason, const QByteArray& fields) {
    const auto date =
        QLocale::c().toString(QDateTime::currentDateTimeUtc(), QStringLiteral("ddd, dd MMM yyyy hh:mm:ss"));
    return "HTTP/1.1 " + number(status) + ' ' + reason + "\r\nDate: " + date.toLatin1() + " GMT\r\n" +
           ALWAYS + fields + "\r\n";
}

/// True if an If-None-Match field has the tag. Tags are weak or strong there; which does not matter.
bool names(std::string_view field, const QByteArray& quotedTag) {
    return field == "*" || field.find(quotedTag.toStdString()) != std::string_view::npos;
}

} // namespace

QByteArray refusal(int status, bool isHead) {
    const auto* found = std::find_if(REFUSALS.begin(), REFUSALS.end(),
                                     [status](const Refusal& known) { return known.status == status; });
    assert(found != REFUSALS.end());
    const auto body = QByteArray(found->sentence) + '\n';
    return headOf(found->status, found->reason,
                  found->more + QByteArray("Content-Type: text/plain; charset=utf-8\r\nContent-Length: ") +
                      number(body.size()) + "\r\n") +
           (isHead ? QByteArray() : body);
}

QByteArray fileAnswer(const Page::File& file, const RequestHead& request) {
    const bool isZipped = !file.gzip.isEmpty() && acceptsCoding(request.acceptEncoding, "gzip");
    const auto& body = isZipped ? file.gzip : file.bytes;
    const auto tag = '"' + file.tag + (isZipped ? "-gzip\"" : "\"");
    const auto fields = "ETag: " + tag + "\r\nVary: Accept-Encoding\r\n";
    if (names(request.ifNoneMatch, tag))
        return headOf(304, "Not Modified", fields);
    return headOf(200, "OK",
                  fields + "Content-Type: " + file.type + (isZipped ? "\r\nContent-Encoding: gzip" : "") +
                      "\r\nContent-Length: " + number(body.size()) + "\r\n") +
           (request.method == "HEAD" ? QByteArray() : body);
}

} // namespace lumbra::web
