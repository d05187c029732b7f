#pragma once

#include "toolkit/ItemList.h"
#include "toolkit/Text.h"

#include <optional>

namespace lumbra {

/// What keeps an item from playing, in a word: it is off, or it is muted. Nothing if the unit has reported neither.
std::optional<Text> silenceOf(const ItemRow& row);

} // namespace lumbra
