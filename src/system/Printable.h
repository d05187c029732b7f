#pragma once

#include <QString>

#include <cstddef>
#include <string>
#include <string_view>

namespace lumbra {

/// `bytes` for a line of output: every byte but printable ASCII is written as \xNN. What is longer than
/// MOST_PRINTED_BYTES is cut, and its size told. Any thread.
inline constexpr std::size_t MOST_PRINTED_BYTES = 256;
std::string printable(std::string_view bytes);

/// A sentence for standard error, in which a name may be anything: `\x1b` or `\u202e` stands for each character
/// that a terminal would obey or hide. What is longer than LONGEST_SENTENCE is cut. Any thread.
inline constexpr qsizetype LONGEST_SENTENCE = 8192; // characters
QString printable(const QString& sentence);

} // namespace lumbra
