#pragma once

#include "toolkit/Label.h"
#include "toolkit/Text.h"

#include <QString>

#include <string>
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
/// `name` if it is shown as `shown`, else `shown` itself: for calls that compare what the user saw with what is there
/// now.
std::string givenName(const QString& shown, const std::string& name);

/// What stands for a value that the unit has not reported: "–".
QString unknownText();
/// The same for a screen reader.
QString spokenUnknown();

/// A whole number with a true minus sign.
QString shownNumber(qint64 number);
/// A reading as the user's language writes it: "−40 dB", in German "60 %".
QString shownText(const Reading& reading);
/// The text of a label.
QString shownText(const Label& label);
/// A reading for a screen reader: "50%" is "50 percent", "-40 dB" is "-40 decibels".
QString spokenText(const Reading& reading);
/// The text of a label for a screen reader.
QString spokenText(const Label& label);

/// The name of a control for a screen reader, from the name of its item and its English caption: "Kitchen
/// volume". `where`, the item's name, may be empty.
QString spokenName(const QString& where, std::string_view caption);

} // namespace lumbra
