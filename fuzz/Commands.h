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
    const auto understands = [](const std::string& body) {
        if (body.size() == 5 && body.starts_with("APPQ")) // Spares the whole answer.
            return body[4] >= '0' && body[4] <= '4';
        return unit.execute(body).to != sim::Response::To::NOT_A_COMMAND;
    };
    for (const auto& write : writes) {
        sim::CommandReader reader;
        std::optional<sim::CommandReader::Command> command;
        for (const char byte : write) {
            check(!command, "bytes behind a command were sent", write);
            command = reader.take(byte);
        }
        check(command && command->unit >= 1 && command->unit <= 4 && understands(command->body),
              "a command was sent that no unit understands", write);
    }
}

} // namespace lumbra
