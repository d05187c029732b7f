#include "touch/Adapter.h"

#include "touch/RefreshQueue.h"

#include <utility>

namespace lumbra {

void Adapter::mark() {
    if (!std::exchange(marked_, true))
        queue_.mark(*this);
}

void Adapter::refreshIfMarked() {
    if (std::exchange(marked_, false))
        refresh();
}

} // namespace lumbra
