#pragma once

#include "Check.h"
#include "simulator/CommandReader.h"
#include "simulator/Unit.h"

#include <optional>
#include <string>
#include <vector>

namespace lumbra {

/// Each write must be one whole command that the simulated unit understands, to a unit from 1 to 4.
inline void checkCommands(const std::vector<std::string>& writes) {
    static sim::Unit unit;
    for (const auto& write : writes) {
        sim::CommandReader reader;
        std::optional<sim::CommandReader::Command> command;
        for (const char byte : write) {
            check(!command, "bytes behind a command were sent", write);
            command = reader.take(byte);
        }
        check(command && command->unit >= 1 && command->unit <= 4 &&
                  unit.execute(command->body).to != sim::Response::To::NOT_A_COMMAND,
              "a command was sent that no unit understands", write);
    }
}

} // namespace lumbra
