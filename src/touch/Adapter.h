#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

class RefreshQueue;

/// Exposes a part of the application to QML. All properties notify through `changed`, at most once a frame
/// however often the application changes. Main thread only, as all adapters.
class Adapter : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

public:
    /// `queue` and `parent` outlive the adapter; `parent` owns it.
    explicit Adapter(RefreshQueue& queue, QObject* parent) : QObject(parent), queue_(queue) {}

    /// Calls `refresh` if something has changed since the last time.
    void refreshIfMarked();

Q_SIGNALS:
    void changed();

protected:
    /// Call when something visible to QML has changed: schedules `refresh`.
    void mark();
    /// Updates what QML sees.
    virtual void refresh() { Q_EMIT changed(); }

private:
    RefreshQueue& queue_;
    bool marked_ = false;
};

} // namespace lumbra
