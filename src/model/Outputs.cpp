#include "model/Outputs.h"

namespace lumbra {

Outputs::Outputs() {
    fillDefaultNames(name, "Output");
    rebuildHideLists();
}

void Outputs::rebuildHideLists() {
    rebuild(name, [](std::size_t) { return true; });
}

} // namespace lumbra
