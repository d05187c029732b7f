#pragma once

#include "toolkit/Label.h"
#include "toolkit/Text.h"

#include <QString>

#include <string_view>

namespace lumbra {

// Translates the application's own English texts (UTF-8) into the user's language. Any other text, such as a
// name from the unit, is returned unchanged. Main thread only.

/// Translates a caption, title, segment or label. The number at the end of a caption ("Override 3") is
/// kept.
QString translatedText(std::string_view text);
/// Translates the words of a text, and fills in its arguments as they are.
QString translatedText(const Text& text);

/// A name as it is shown: one that the unit has given unchanged, a default name in the user's language.
QString shownName(std::string_view name);

/// The text of a label for a screen reader: "50%" is "50 percent", "-40 dB" is "-40 decibels".
QString spokenText(const Label& label);

/// The name of a control for a screen reader, from the name of its item and its English caption: "Kitchen
/// volume". `where`, the item's name, may be empty.
QString spokenName(const QString& where, std::string_view caption);

} // namespace lumbra
