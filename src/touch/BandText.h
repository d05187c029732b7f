#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// The exact setting of an equaliser band, from the values of its sliders. Numbers are written as the user's
/// language has them. Main thread only.
class BandText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// "1.75 kHz, +11 dB"; without a gain "1.75 kHz".
    Q_INVOKABLE static QString shown(qreal frequency, qreal gain, bool hasGain);
    /// The same for a screen reader: "1.75 kilohertz, 11 decibels".
    Q_INVOKABLE static QString spoken(qreal frequency, qreal gain, bool hasGain);
    /// The value of the frequency slider, or of the gain slider, for a number that the user has typed; NaN if it is none,
    /// or one that a band can't have.
    Q_INVOKABLE static qreal typedFrequency(const QString& text);
    Q_INVOKABLE static qreal typedGain(const QString& text);
    /// The frequency of a slider's value where there is little room: "1.75k".
    Q_INVOKABLE static QString brief(qreal frequency);
    /// An exact frequency: "1.75 kHz".
    static QString frequency(qint64 hertz);
    /// A gain with its sign: "+11 dB", "0 dB".
    static QString gain(qint64 decibels);
};

} // namespace lumbra
