#include "model/Zones.h"

namespace lumbra {

Zones::Zones() {
    fillDefaultNames(name, "Zone");
    rebuild(name, [](std::size_t) { return true; });
}

void Zones::rebuildHideLists() {
    rebuild(name, [this](std::size_t zone) { return hasMembership[zone]; });
}

} // namespace lumbra
