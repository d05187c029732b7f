#pragma once

#include "model/Defaults.h"
#include "model/HideLists.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace lumbra {

/// What is known of the unit's twenty inputs, and the rows of an input picker. Input n on the wire is index n
/// - 1. Validates nothing: whoever writes has checked.
class Sources : public HideLists {
public:
    static constexpr std::int64_t size = 20;
    template <class T>
    using PerInput = std::array<T, static_cast<std::size_t>(size)>;

    PerInput<bool> stereo{};    ///< last reported as a stereo input
    PerInput<std::string> name; ///< UTF-8

    Sources();

    /// Makes the rows follow `name`. Every input is listed, whatever its stereo flag.
    void rebuildHideLists();
};

} // namespace lumbra
