#pragma once

#include "Input.h"

#include <map>
#include <string>

namespace lumbra {

using FuzzTarget = void (*)(Input);

/// The targets of this program, by their names.
inline std::map<std::string, FuzzTarget>& fuzzTargets() {
    static std::map<std::string, FuzzTarget> targets;
    return targets;
}

} // namespace lumbra

/// FUZZ_TARGET(NAME)(Input input) { ... } is a fuzz target: what one input runs. A check that fails in it aborts.
/// For libFuzzer each is a program of its own; the tests' program replays all of them.
#ifdef LUMBRA_FUZZ
#define FUZZ_TARGET(name)                                                                                    \
    static void fuzz_##name(lumbra::Input);                                                                  \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {                      \
        fuzz_##name(lumbra::Input(data, size));                                                              \
        return 0;                                                                                            \
    }                                                                                                        \
    static void fuzz_##name
#else
#define FUZZ_TARGET(name)                                                                                    \
    static void fuzz_##name(lumbra::Input);                                                                  \
    static const bool IS_KNOWN_##name = lumbra::fuzzTargets().emplace(#name, fuzz_##name).second;            \
    static void fuzz_##name
#endif
