#pragma once

#include "toolkit/Label.h"

#include <QString>

#include <string_view>

namespace lumbra {

// The application's own English texts (UTF-8) in the person's language. A text that is not one of them, as a
// name or a level from the unit, stays as it stands.

/// Captions, titles, segments, labels and alerts. A number behind a caption ("Override 3") is kept.
QString translatedText(std::string_view text);

/// A label as a screen reader should say it: "50%" is "50 percent", "-40 dB" is "-40 decibels".
QString spokenText(const Label& label);

/// The name of a control with this English caption, of the item `where` (which may be empty), as a screen
/// reader should say it: "Kitchen volume".
QString spokenName(const QString& where, std::string_view caption);

} // namespace lumbra
