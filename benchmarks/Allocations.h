#pragma once

#include <cstddef>

/// How often memory has been allocated in this process so far. Linking Allocations.cpp counts.
std::size_t allocations();
