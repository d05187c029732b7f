#include "app/Condition.h"

#include "toolkit/Translatable.h"

#include <string>

namespace lumbra {

Text textOf(Condition condition, std::int64_t unit) {
    switch (condition) {
    case Condition::Retrying:
        return {LUMBRA_TEXT("System", "Reconnecting…")};
    case Condition::Connecting:
        return {LUMBRA_TEXT("System", "Connecting")};
    case Condition::Waiting:
        return {LUMBRA_TEXT("System", "Waiting for the unit")};
    case Condition::Silent:
        return {LUMBRA_TEXT("System", "Unit %1 does not answer"), {std::to_string(unit)}};
    case Condition::Current:
        return {LUMBRA_TEXT("System", "Connected")};
    case Condition::NotConnected:
        break;
    }
    return {LUMBRA_TEXT("System", "Not connected")};
}

} // namespace lumbra
