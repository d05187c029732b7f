#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Builds the texts for screen readers. Main thread only.
class Speech : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// Returns `pattern` with %1 to %9 replaced by `values`. Values are plain text: a "%1" in the name of a
    /// zone is kept, where repeated calls of QString::arg would replace it. What stands for an unknown value is
    /// spoken as such.
    Q_INVOKABLE static QString format(const QString& pattern, const QStringList& values);
};

} // namespace lumbra
