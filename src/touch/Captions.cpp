#include "touch/Captions.h"

#include "app/DefaultName.h"

#include <QCoreApplication>

#include <cctype>
#include <string>

namespace lumbra {

namespace {

constexpr const char* CONTEXT = "System";

/// Captions as the second part of a name: "Kitchen volume". In some languages they differ there from the
/// caption on its own.
[[maybe_unused]] constexpr const char* IN_A_NAME[] = {
    QT_TRANSLATE_NOOP("Sentence", "input"),     QT_TRANSLATE_NOOP("Sentence", "volume"),
    QT_TRANSLATE_NOOP("Sentence", "mute"),      QT_TRANSLATE_NOOP("Sentence", "loudness"),
    QT_TRANSLATE_NOOP("Sentence", "power"),     QT_TRANSLATE_NOOP("Sentence", "bass"),
    QT_TRANSLATE_NOOP("Sentence", "treble"),    QT_TRANSLATE_NOOP("Sentence", "type"),
    QT_TRANSLATE_NOOP("Sentence", "frequency"), QT_TRANSLATE_NOOP("Sentence", "gain"),
};

QString utf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The number at the end of a caption is not part of the text to translate.
QString translatedWords(const char* context, std::string_view text) {
    const auto head = text.substr(0, text.find_last_not_of("0123456789") + 1);
    const auto words = head.ends_with(' ') ? head.substr(0, head.size() - 1) : text;
    return QCoreApplication::translate(context, std::string(words).c_str()) + utf8(text.substr(words.size()));
}

} // namespace

QString translatedText(std::string_view text) {
    return translatedWords(CONTEXT, text);
}

QString translatedText(const Text& text) {
    const auto words = QCoreApplication::translate(CONTEXT, std::string(text.pattern).c_str());
    return QString::fromStdString(text.filled(words.toStdString()));
}

QString shownName(std::string_view name) {
    const auto given = defaultName(name);
    return given ? translatedText(*given) : utf8(name);
}

std::string givenName(const QString& shown, const std::string& name) {
    return shownName(name) == shown ? name : shown.toStdString();
}

QString unknownText() {
    return QStringLiteral("–");
}

QString spokenUnknown() {
    return QCoreApplication::translate(CONTEXT, QT_TRANSLATE_NOOP("System", "unknown"));
}

QString shownNumber(qint64 number) {
    return QString::number(number).replace(u'-', QChar(0x2212));
}

QString shownText(const Label& label) {
    return label.reading() ? shownText(*label.reading()) : translatedText(label.text());
}

QString shownText(const Reading& reading) {
    static constexpr const char* SHOWN[] = {
        //: With the space before the sign that the language has: a narrow no-break space (U+202F)
        QT_TRANSLATE_NOOP("System", "%1%"),
        QT_TRANSLATE_NOOP("System", "%1 dB"),
        QT_TRANSLATE_NOOP("System", "%1 Hz"),
        QT_TRANSLATE_NOOP("System", "%1 kHz"),
    };
    return QCoreApplication::translate("System", SHOWN[static_cast<std::size_t>(reading.unit)])
        .arg(shownNumber(reading.number));
}

QString spokenText(const Label& label) {
    return label.reading() ? spokenText(*label.reading()) : translatedText(label.text());
}

QString spokenText(const Reading& reading) {
    static constexpr const char* SPOKEN[] = {
        QT_TRANSLATE_NOOP("System", "%1 percent"),
        QT_TRANSLATE_NOOP("System", "%1 decibels"),
        QT_TRANSLATE_NOOP("System", "%1 hertz"),
        QT_TRANSLATE_NOOP("System", "%1 kilohertz"),
    };
    return QCoreApplication::translate("System", SPOKEN[static_cast<std::size_t>(reading.unit)])
        .arg(QString::number(reading.number));
}

QString spokenName(const QString& where, std::string_view caption) {
    if (where.isEmpty())
        return translatedText(caption);
    std::string lower(caption);
    if (!lower.empty())
        lower.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(lower.front())));
    //: %1 is the name of an item (a zone, an output ...), %2 a caption of its controls: "Kitchen volume"
    return QCoreApplication::translate("Sentence", "%1 %2").arg(where, translatedWords("Sentence", lower));
}

} // namespace lumbra
