#pragma once

#include "Process.h"

namespace lumbra {

/// The simulated unit, as a program on a port of the kernel's choice.
class Simulator : public Process {
public:
    explicit Simulator(std::vector<std::string> options = {}) : Process(command(std::move(options))) {}

    /// The line with which it says that it is ready.
    const std::string& ready() const { return ready_; }
    std::string port() const { return ready_.substr(ready_.rfind(':') + 1); }
    std::string place() const { return "127.0.0.1:" + port(); }

private:
    static std::vector<std::string> command(std::vector<std::string> options) {
        options.insert(options.begin(), {SIMULATOR_PROGRAM, "--port", "0"});
        return options;
    }
    std::string ready_ = readLine().value_or("");
};

} // namespace lumbra
