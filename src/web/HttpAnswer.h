#pragma once

#include "web/Page.h"
#include "web/RequestHead.h"

#include <QByteArray>

namespace lumbra::web {

/// The bytes of an answer (RFC 9110): its head, with what a browser needs to know to load nothing from elsewhere, and
/// for other methods than HEAD its body. The connection ends behind it. Any thread.
///
/// `refusal` is an answer without a file: a status from 400 on, with a sentence for people. `file` answers a GET or
/// HEAD with a file, or with 304 if the browser has it.
QByteArray refusal(int status, bool isHead = false);
QByteArray fileAnswer(const Page::File& file, const RequestHead& request);

} // namespace lumbra::web
