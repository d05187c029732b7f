#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Puts together what a screen reader says.
class Speech : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// `pattern` with its %1 to %9 filled in. A value is plain text: a "%1" in a zone's name stays one, which
    /// calls of `arg` in a row would take for a gap.
    Q_INVOKABLE static QString fill(const QString& pattern, const QStringList& values);
};

} // namespace lumbra
