#include "touch/BandText.h"

#include "app/BandSetting.h"
#include "touch/Captions.h"

#include <QCoreApplication>
#include <QLocale>

namespace lumbra {

namespace {

BandSetting settingOf(qreal frequency, qreal gain) {
    return BandSetting::of(static_cast<float>(frequency), static_cast<float>(gain));
}

/// 1750 is "1.75": as many decimals as it takes.
QString kilo(qint64 number) {
    return QLocale().toString(static_cast<double>(number) / 1000, 'g', QLocale::FloatingPointShortest);
}

QString withGain(const QString& frequency, const QString& gain) {
    return gain.isEmpty() ? frequency : frequency + QStringLiteral(", ") + gain;
}

} // namespace

QString BandText::gain(qint64 decibels) {
    return (decibels > 0 ? QStringLiteral("+%1 dB") : QStringLiteral("%1 dB")).arg(shownNumber(decibels));
}

QString BandText::shown(qreal frequency, qreal gain, bool hasGain) {
    const auto setting = settingOf(frequency, gain);
    const auto text = setting.frequency < 1000 ? QStringLiteral("%1 Hz").arg(setting.frequency)
                                               : QStringLiteral("%1 kHz").arg(kilo(setting.frequency));
    return withGain(text, hasGain ? BandText::gain(setting.gain) : QString());
}

QString BandText::spoken(qreal frequency, qreal gain, bool hasGain) {
    const auto setting = settingOf(frequency, gain);
    const auto text =
        setting.frequency < 1000
            ? QCoreApplication::translate("System", "%1 hertz").arg(setting.frequency)
            : QCoreApplication::translate("System", "%1 kilohertz").arg(kilo(setting.frequency));
    return withGain(text, hasGain ? QCoreApplication::translate("System", "%1 decibels").arg(setting.gain)
                                  : QString());
}

} // namespace lumbra
