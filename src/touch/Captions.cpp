#include "touch/Captions.h"

#include <QCoreApplication>
#include <QLatin1StringView>

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace lumbra {

namespace {

constexpr const char* CONTEXT = "System";

constexpr std::array TEXTS{
    // Titles
    QT_TRANSLATE_NOOP("System", "Zones"),
    QT_TRANSLATE_NOOP("System", "Outputs"),
    QT_TRANSLATE_NOOP("System", "Groups"),
    QT_TRANSLATE_NOOP("System", "Overrides"),
    QT_TRANSLATE_NOOP("System", "Scenes"),
    // Captions
    QT_TRANSLATE_NOOP("System", "Zone"),
    QT_TRANSLATE_NOOP("System", "Output"),
    QT_TRANSLATE_NOOP("System", "Group"),
    QT_TRANSLATE_NOOP("System", "Scene"),
    QT_TRANSLATE_NOOP("System", "Override"),
    QT_TRANSLATE_NOOP("System", "Input"),
    QT_TRANSLATE_NOOP("System", "Volume"),
    QT_TRANSLATE_NOOP("System", "Mute"),
    QT_TRANSLATE_NOOP("System", "Loudness"),
    QT_TRANSLATE_NOOP("System", "Power"),
    QT_TRANSLATE_NOOP("System", "Bass"),
    QT_TRANSLATE_NOOP("System", "Treble"),
    QT_TRANSLATE_NOOP("System", "Type"),
    QT_TRANSLATE_NOOP("System", "Frequency"),
    QT_TRANSLATE_NOOP("System", "Gain"),
    // Segments
    QT_TRANSLATE_NOOP("System", "Bypass"),
    QT_TRANSLATE_NOOP("System", "High-pass"),
    QT_TRANSLATE_NOOP("System", "High shelf"),
    QT_TRANSLATE_NOOP("System", "Low-pass"),
    QT_TRANSLATE_NOOP("System", "Low shelf"),
    QT_TRANSLATE_NOOP("System", "Parametric"),
    // Buttons
    QT_TRANSLATE_NOOP("System", "Recall"),
    QT_TRANSLATE_NOOP("System", "Store"),
    // Settings
    QT_TRANSLATE_NOOP("System", "IP address"),
    QT_TRANSLATE_NOOP("System", "Unit number"),
    QT_TRANSLATE_NOOP("System", "State queries"),
    QT_TRANSLATE_NOOP("System", "Serial port"),
    QT_TRANSLATE_NOOP("System", "Start tab"),
    QT_TRANSLATE_NOOP("System", "Advanced mode"),
    // Alerts
    QT_TRANSLATE_NOOP("System", "Error"),
    QT_TRANSLATE_NOOP("System", "OK"),
};
/// Captions behind the name of what they belong to, which some languages write as they stand alone and some
/// not.
constexpr std::array IN_A_SENTENCE{
    QT_TRANSLATE_NOOP("Sentence", "input"),     QT_TRANSLATE_NOOP("Sentence", "volume"),
    QT_TRANSLATE_NOOP("Sentence", "mute"),      QT_TRANSLATE_NOOP("Sentence", "loudness"),
    QT_TRANSLATE_NOOP("Sentence", "power"),     QT_TRANSLATE_NOOP("Sentence", "bass"),
    QT_TRANSLATE_NOOP("Sentence", "treble"),    QT_TRANSLATE_NOOP("Sentence", "type"),
    QT_TRANSLATE_NOOP("Sentence", "frequency"), QT_TRANSLATE_NOOP("Sentence", "gain"),
};
constexpr const char* CONNECTION_ALERT = QT_TRANSLATE_NOOP("System", "Failed to connect to IP address %1.");

/// The translation of a text of the table, with or without a number behind it; null where it is none.
template <class Table>
QString known(const char* context, const Table& table, std::string_view text) {
    const auto find = [&](std::string_view wanted) {
        const auto found = std::find(table.begin(), table.end(), wanted);
        return found == table.end() ? QString() : QCoreApplication::translate(context, *found);
    };
    const auto blank = text.rfind(' ');
    if (blank == std::string_view::npos ||
        text.find_first_not_of("0123456789", blank + 1) != std::string_view::npos)
        return find(text);
    const auto caption = find(text.substr(0, blank));
    const auto number = text.substr(blank);
    return caption.isNull()
               ? caption
               : caption + QString::fromUtf8(number.data(), static_cast<qsizetype>(number.size()));
}

} // namespace

QString translatedText(std::string_view text) {
    if (auto translated = known(CONTEXT, TEXTS, text); !translated.isNull())
        return translated;
    constexpr std::string_view pattern = "Failed to connect to IP address %1.";
    constexpr auto prefix = pattern.substr(0, pattern.find('%'));
    if (text.starts_with(prefix) && text.ends_with('.') && text.size() > prefix.size()) {
        const auto address = text.substr(prefix.size(), text.size() - prefix.size() - 1);
        return QCoreApplication::translate(CONTEXT, CONNECTION_ALERT)
            .arg(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())));
    }
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString spokenText(std::string_view text) {
    QString shown = translatedText(text);
    if (shown.endsWith(u'%'))
        return QCoreApplication::translate("System", "%1 percent").arg(shown.chopped(1));
    if (shown.endsWith(QStringLiteral(" dB")))
        return QCoreApplication::translate("System", "%1 decibels").arg(shown.chopped(3));
    if (shown.endsWith(QStringLiteral(" kHz")))
        return QCoreApplication::translate("System", "%1 kilohertz").arg(shown.chopped(4));
    if (shown.endsWith(QStringLiteral(" Hz")))
        return QCoreApplication::translate("System", "%1 hertz").arg(shown.chopped(3));
    return shown;
}

QString spokenName(const QString& where, std::string_view caption) {
    if (where.isEmpty())
        return translatedText(caption);
    std::string lower(caption);
    if (!lower.empty())
        lower.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(lower.front())));
    const auto within = known("Sentence", IN_A_SENTENCE, lower);
    //: %1 is the name of a zone, an output ..., %2 what of it: "Kitchen volume"
    return QCoreApplication::translate("Sentence", "%1 %2")
        .arg(where, within.isNull() ? translatedText(caption) : within);
}

} // namespace lumbra
