#pragma once

#include <cstddef>
#include <string>

namespace lumbra {

// The initial values of a model, before the unit has reported anything.

/// Names the items KIND 1, KIND 2 and so on.
template <class Names>
void fillDefaultNames(Names& names, const std::string& kind) {
    for (std::size_t item = 0; item < names.size(); ++item)
        names[item] = kind + " " + std::to_string(item + 1);
}

/// An array with the same value everywhere.
template <class Array>
constexpr Array filled(typename Array::value_type value) {
    Array array{};
    array.fill(value);
    return array;
}

} // namespace lumbra
