#include "system/Printable.h"

#include "text/Utf8.h"

#include <array>
#include <cstdio>

namespace lumbra {

std::string printable(std::string_view bytes) {
    std::string result;
    for (const char c : bytes.substr(0, MOST_PRINTED_BYTES)) {
        std::array<char, 5> escape{c};
        if (c < ' ' || c > '~')
            std::snprintf(escape.data(), escape.size(), "\\x%02X", static_cast<unsigned char>(c));
        result += escape.data();
    }
    return bytes.size() <= MOST_PRINTED_BYTES ? result
                                              : result + "... (" + std::to_string(bytes.size()) + " bytes)";
}

QString printable(const QString& sentence) {
    const auto shown =
        QString::fromStdString(escapedForTerminal(sentence.left(LONGEST_SENTENCE).toStdString()));
    return sentence.size() <= LONGEST_SENTENCE ? shown : shown + QStringLiteral("...");
}

} // namespace lumbra
