#include "system/Printable.h"

#include <array>
#include <cstdio>

namespace lumbra {

namespace {

std::string escape(const char* format, unsigned code) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), format, code);
    return text.data();
}

bool isObeyedByTerminals(QChar c) {
    const auto category = c.category();
    return category == QChar::Other_Control || category == QChar::Other_Format ||
           category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

} // namespace

std::string printable(std::string_view bytes) {
    std::string result;
    for (const char c : bytes.substr(0, MOST_PRINTED_BYTES)) {
        if (c >= ' ' && c <= '~')
            result += c;
        else
            result += escape("\\x%02X", static_cast<unsigned char>(c));
    }
    return bytes.size() <= MOST_PRINTED_BYTES ? result
                                              : result + "... (" + std::to_string(bytes.size()) + " bytes)";
}

QString printable(const QString& sentence) {
    QString result;
    for (const auto c : sentence.left(LONGEST_SENTENCE)) {
        if (isObeyedByTerminals(c))
            result +=
                QString::fromStdString(escape(c.unicode() < 0x100 ? "\\x%02x" : "\\u%04x", c.unicode()));
        else
            result += c;
    }
    return sentence.size() <= LONGEST_SENTENCE ? result : result + QStringLiteral("...");
}

} // namespace lumbra
