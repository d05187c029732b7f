#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace lumbra {

/// Ends the program with `sentence`, and what it is about, where it does not hold.
inline void check(bool holds, std::string_view sentence, std::string_view about = {}) {
    if (holds)
        return;
    const auto text = std::string(sentence) + (about.empty() ? "" : ": ") + std::string(about);
    std::fprintf(stderr, "%s\n", text.c_str());
    std::abort();
}

} // namespace lumbra
