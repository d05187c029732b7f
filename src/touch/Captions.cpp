#include "touch/Captions.h"

#include <QCoreApplication>
#include <QLatin1StringView>

#include <algorithm>
#include <array>

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
constexpr const char* CONNECTION_ALERT = QT_TRANSLATE_NOOP("System", "Failed to connect to IP address %1.");

QString translate(const char* text) {
    return QCoreApplication::translate(CONTEXT, text);
}

/// The translation of a text of the table; null where it is none.
QString known(std::string_view text) {
    const auto* const found = std::find(TEXTS.begin(), TEXTS.end(), text);
    return found == TEXTS.end() ? QString() : translate(*found);
}

} // namespace

QString translatedText(std::string_view text) {
    if (QString whole = known(text); !whole.isNull())
        return whole;
    if (const auto blank = text.rfind(' '); blank != std::string_view::npos) {
        const auto number = text.substr(blank);
        if (const QString caption = known(text.substr(0, blank));
            !caption.isNull() && number.find_first_not_of("0123456789", 1) == std::string_view::npos)
            return caption + QString::fromUtf8(number.data(), static_cast<qsizetype>(number.size()));
    }
    constexpr std::string_view pattern = "Failed to connect to IP address %1.";
    constexpr auto prefix = pattern.substr(0, pattern.find('%'));
    if (text.starts_with(prefix) && text.ends_with('.') && text.size() > prefix.size()) {
        const auto address = text.substr(prefix.size(), text.size() - prefix.size() - 1);
        return translate(CONNECTION_ALERT)
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

} // namespace lumbra
