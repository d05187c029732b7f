#include "model/Sources.h"

namespace lumbra {

Sources::Sources() {
    fillDefaultNames(name, "Source");
    rebuildHideLists();
}

void Sources::rebuildHideLists() {
    rebuild(name, [](std::size_t) { return true; });
}

} // namespace lumbra
