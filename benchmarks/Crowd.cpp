// Many remotes on one unit, all from outside: the time from the command of one remote to the control event of the last
// one, with two remotes (the baseline) and with sixty, and the memory of a remote.

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t FEW = 2;
constexpr std::size_t MANY = 60;
constexpr int COMMANDS = 300;
constexpr int PATIENCE = 20000; // ms for anything to happen at all

[[noreturn]] void giveUp(const std::string& what) {
    std::fprintf(stderr, "error: %s\n", what.c_str());
    std::exit(1);
}

/// A program with pipes as its standard input and output. It ends with its object.
class Program {
public:
    explicit Program(std::vector<std::string> arguments) {
        std::vector<char*> argv;
        argv.reserve(arguments.size() + 1);
        for (auto& argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        std::array<int, 2> in{}, out{};
        if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0 ||
            (pid_ = ::fork()) < 0)
            giveUp(std::strerror(errno));
        if (pid_ == 0) {
            ::dup2(in[0], STDIN_FILENO);
            ::dup2(out[1], STDOUT_FILENO);
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        input_ = in[1];
        output_ = out[0];
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        ::kill(pid_, SIGTERM);
        ::close(input_);
        ::close(output_);
        ::waitpid(pid_, nullptr, 0);
    }

    pid_t pid() const { return pid_; }
    int output() const { return output_; }
    void write(const std::string& text) const {
        if (::write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
            giveUp("a program does not read");
    }
    /// Reads what has come. True if `text` has come, which is where it goes on.
    bool takes(const std::string& text) {
        std::array<char, 65536> buffer{};
        const auto count = ::read(output_, buffer.data(), buffer.size());
        if (count <= 0)
            giveUp("a program has ended");
        pending_.append(buffer.data(), static_cast<std::size_t>(count));
        const auto found = pending_.find(text);
        if (found != std::string::npos)
            taken_ = pending_.substr(0, found + text.size());
        // A text may lie across two pieces.
        pending_.erase(0, found != std::string::npos
                              ? found + text.size()
                              : pending_.size() - std::min(pending_.size(), text.size()));
        return found != std::string::npos;
    }
    /// Waits for `text`; what came before it, and itself.
    const std::string& await(const std::string& text) {
        pollfd ready{output_, POLLIN, 0};
        do
            if (::poll(&ready, 1, PATIENCE) != 1)
                giveUp("'" + text + "' does not come");
        while (!takes(text));
        return taken_;
    }

private:
    pid_t pid_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string pending_;
    std::string taken_;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// A figure of a process in kB.
double memory(pid_t pid, const std::string& key) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/smaps_rollup");
    for (std::string word; file >> word;)
        if (word == key + ":") {
            double kilobytes = 0;
            file >> kilobytes;
            return kilobytes;
        }
    giveUp("the system does not tell of " + key);
}

struct Figures {
    double median, worst;     ///< ms
    double proportional, own; ///< kB of a remote
};

Figures measure(const std::string& remote, const std::string& simulator, std::size_t count) {
    Program unit({simulator});
    const auto line = unit.await("\n");
    const auto port = line.substr(line.rfind(':') + 1, line.size() - line.rfind(':') - 2);
    std::string folder = std::filesystem::temp_directory_path() / "lumbra-crowd-XXXXXX";
    if (!::mkdtemp(folder.data()))
        giveUp(std::strerror(errno));
    std::vector<std::unique_ptr<Program>> remotes;
    for (std::size_t index = 0; index < count; ++index) {
        remotes.push_back(std::make_unique<Program>(
            std::vector<std::string>{remote, "--console", "--json", "--connect-to", "127.0.0.1:" + port,
                                     "--settings", folder + "/" + std::to_string(index)}));
        remotes.back()->write("wait open\nwait answer\n");
    }
    for (const auto& program : remotes)
        program->await("\"status\":\"current\"");

    std::vector<double> times;
    for (int command = 0; command < COMMANDS; ++command) {
        // The first zone is not muted at the start.
        const bool on = command % 2 == 0;
        const auto& commander = remotes[static_cast<std::size_t>(command) % count];
        const std::string event =
            std::string("\"control\":\"muteSwitch\",\"state\":{\"kind\":\"switch\",\"on\":") +
            (on ? "true" : "false");
        const auto begin = Clock::now();
        commander->write(on ? "switch muteSwitch on\n" : "switch muteSwitch off\n");
        std::vector<pollfd> waiting;
        std::vector<Program*> programs;
        for (const auto& program : remotes) {
            waiting.push_back({program->output(), POLLIN, 0});
            programs.push_back(program.get());
        }
        for (std::size_t left = count; left > 0;) {
            if (::poll(waiting.data(), waiting.size(), PATIENCE) <= 0)
                giveUp(std::to_string(left) + " remotes do not show a change");
            for (std::size_t index = 0; index < count; ++index)
                if (waiting[index].revents != 0 && programs[index]->takes(event)) {
                    waiting[index].fd = -1; // poll leaves it out
                    --left;
                }
        }
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
    std::vector<double> proportional, own;
    for (const auto& program : remotes) {
        proportional.push_back(memory(program->pid(), "Pss"));
        own.push_back(memory(program->pid(), "Private_Dirty"));
    }
    remotes.clear();
    std::filesystem::remove_all(folder);
    return {median(times), *std::max_element(times.begin(), times.end()), median(proportional), median(own)};
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    if (argc != 3)
        giveUp("usage: bench_crowd REMOTE SIMULATOR");
    const auto few = measure(argv[1], argv[2], FEW);
    const auto many = measure(argv[1], argv[2], MANY);
    std::printf(
        "a change, from its command to the last of %zu remotes: %.2f ms, worst of %d: %.2f ms; %zu remotes: "
        "%.2f ms, %.2f ms: %.1f times\n",
        MANY, many.median, COMMANDS, many.worst, FEW, few.median, few.worst, many.median / few.median);
    std::printf("each remote more: %.3f ms, %.2f times what %zu need for each\n",
                (many.median - few.median) / (MANY - FEW),
                (many.median - few.median) / (MANY - FEW) / (few.median / FEW), FEW);
    std::printf(
        "memory of each of %zu remotes: %.1f MiB, of which %.1f MiB are its own; of each of %zu: %.1f MiB\n",
        MANY, many.proportional / 1024, many.own / 1024, FEW, few.proportional / 1024);
}
