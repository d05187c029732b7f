#pragma once

#include "model/HideLists.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumbra {

/// What is known of the unit's twenty inputs, and the rows of an input picker: every input is listed, stereo or
/// not. Nothing is validated here: the writer checks ranges.
class Sources final : public HideLists {
public:
    static constexpr std::int64_t size = 20;

    std::array<bool, static_cast<std::size_t>(size)> stereo{}; ///< last reported as a stereo input

    Sources() : HideLists(size, "Source") {}
};

} // namespace lumbra
