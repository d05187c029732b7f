#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace lumbra {

/// A program run by a test, with pipes or a terminal as its standard streams. It is killed with its object.
class Process {
public:
    enum class Streams { Pipes, Terminal };

    /// `environment` holds "NAME=VALUE" texts that are added to the test's own.
    explicit Process(std::vector<std::string> arguments, Streams streams = Streams::Pipes,
                     std::vector<std::string> environment = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void write(std::string_view bytes);
    void endInput();
    /// Nobody reads its standard output any more.
    void closeOutput();
    /// The next line of standard output without its end; nothing at the end, or when none comes for a long
    /// time.
    std::optional<std::string> readLine();
    /// Reads until `text` has come, which is where it goes on; what was read, or nothing where it does not
    /// come.
    std::optional<std::string> readUntil(std::string_view text);
    void signal(int number);
    /// Waits for its end: the exit status, or minus the signal that ended it.
    int wait();
    /// All of standard error, once it has ended.
    std::string errors();

private:
    bool readMore();

    pid_t pid_ = -1;
    std::optional<int> status_;
    int input_ = -1;
    int output_ = -1;
    int errors_ = -1;
    std::string pending_;
};

} // namespace lumbra
