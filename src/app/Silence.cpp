#include "app/Silence.h"

#include "toolkit/Translatable.h"

namespace lumbra {

std::optional<Text> silenceOf(const ItemRow& row) {
    if (row.known.power && !row.power.value_or(true))
        return Text{LUMBRA_TEXT("System", "Off")};
    if (row.known.mute && row.mute)
        return Text{LUMBRA_TEXT("System", "Muted")};
    return std::nullopt;
}

} // namespace lumbra
