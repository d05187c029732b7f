#pragma once

#include "model/Defaults.h"
#include "model/HideLists.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace lumbra {

/// What is known of the unit's twenty inputs, and the rows of an input picker. Input n on the wire is index n
/// - 1. Nothing is validated here: the writer checks ranges.
class Sources : public HideLists {
public:
    static constexpr std::int64_t size = 20;
    template <class T>
    using PerInput = std::array<T, static_cast<std::size_t>(size)>;

    PerInput<bool> stereo{};    ///< last reported as a stereo input
    PerInput<std::string> name; ///< UTF-8

    Sources();

    /// Rebuilds the rows from `name`. Every input is listed, stereo or not.
    void rebuildHideLists();
};

} // namespace lumbra
