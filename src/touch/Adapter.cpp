#include "touch/Adapter.h"

#include "touch/RefreshQueue.h"

#include <QPointer>

#include <utility>

namespace lumbra {

void Adapter::mark() {
    if (!std::exchange(marked_, true))
        queue_.mark(*this);
}

void Adapter::after(std::chrono::milliseconds delay, std::function<void()> work) {
    queue_.mainQueue().postAfter(delay, [self = QPointer(this), work = std::move(work)] {
        if (self)
            work();
    });
}

void Adapter::refreshIfMarked() {
    if (std::exchange(marked_, false))
        refresh();
}

} // namespace lumbra
