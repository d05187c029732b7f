#pragma once

#include <string_view>

namespace lumbra {

/// Takes what the console prints.
class Output {
public:
    virtual ~Output() = default;
    /// One or more whole lines, each with its end.
    virtual void write(std::string_view lines) = 0;
};

} // namespace lumbra
