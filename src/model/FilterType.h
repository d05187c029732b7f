#pragma once

#include <array>
#include <cstdint>

namespace lumbra {

/// What a band of an equaliser does. The number is also the segment of the band's type control.
enum FilterType : std::int64_t {
    FILTER_BYPASS,
    FILTER_HIGHPASS,
    FILTER_HIGHSHELF,
    FILTER_LOWPASS,
    FILTER_LOWSHELF,
    FILTER_PARAMETRIC
};

/// What a filter has besides its type.
struct FilterValues {
    bool frequency;
    bool gain;
};

/// By type.
inline constexpr std::array<FilterValues, FILTER_PARAMETRIC + 1> FILTERS{
    {{false, false}, {true, false}, {true, true}, {true, false}, {true, true}, {true, true}}};

} // namespace lumbra
