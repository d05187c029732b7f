#include "touch/RefreshQueue.h"

#include "touch/Adapter.h"

#include <utility>

namespace lumbra {

void RefreshQueue::mark(Adapter& adapter) {
    marked_.emplace_back(&adapter);
    if (std::exchange(waiting_, true))
        return;
    queue_.post(life_.guard([this] { refreshMarked(); }));
}

void RefreshQueue::refreshMarked() {
    queue_.postAfter(FRAME, life_.guard([this] { frameOver(); }));
    // A refresh may mark further adapters.
    const auto marked = std::exchange(marked_, {});
    for (const auto& adapter : marked)
        if (adapter)
            adapter->refreshIfMarked();
}

void RefreshQueue::frameOver() {
    if (marked_.empty())
        waiting_ = false;
    else
        refreshMarked();
}

} // namespace lumbra
