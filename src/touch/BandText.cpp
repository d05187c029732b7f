#include "touch/BandText.h"

#include "app/BandSetting.h"
#include "touch/Captions.h"

#include <QCoreApplication>
#include <QLocale>
#include <QtNumeric>

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

QString BandText::frequency(qint64 hertz) {
    return hertz < 1000 ? QStringLiteral("%1 Hz").arg(hertz) : QStringLiteral("%1 kHz").arg(kilo(hertz));
}

QString BandText::brief(qreal frequency) {
    const auto hertz = settingOf(frequency, 0).frequency;
    return hertz < 1000 ? QString::number(hertz) : kilo(hertz) + u'k';
}

qreal BandText::typedFrequency(const QString& text) {
    const auto hertz = lumbra::typedFrequency(text.toStdString());
    return hertz ? static_cast<qreal>(frequencyToSlider(*hertz)) : qQNaN();
}

qreal BandText::typedGain(const QString& text) {
    const auto decibels = lumbra::typedGain(text.toStdString());
    return decibels ? static_cast<qreal>(*decibels) : qQNaN();
}

QString BandText::shown(qreal frequency, qreal gain, bool hasGain) {
    const auto setting = settingOf(frequency, gain);
    return withGain(BandText::frequency(setting.frequency),
                    hasGain ? BandText::gain(setting.gain) : QString());
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
