#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

class RefreshQueue;

/// Shows something of the application to QML. All its properties notify through `changed`, at most once a
/// frame however often the application changed meanwhile. Main thread only.
class Adapter : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

public:
    /// Both outlive the adapter.
    explicit Adapter(RefreshQueue& queue, QObject* parent) : QObject(parent), queue_(queue) {}

    /// Runs `refresh` where something has changed since the last time.
    void refreshIfMarked();

Q_SIGNALS:
    void changed();

protected:
    /// Something that QML may show has changed: `refresh` runs soon.
    void mark();
    /// Brings what QML sees up to date.
    virtual void refresh() { Q_EMIT changed(); }

private:
    RefreshQueue& queue_;
    bool marked_ = false;
};

} // namespace lumbra
