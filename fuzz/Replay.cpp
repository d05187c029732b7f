#include "Target.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

/// Runs the fuzz target for which a folder is named on every file of the folder, then on mixtures of their lines, reports
/// and commands, the same in each run. A check that fails aborts; what is named last is then its input.
int main(int, char** argv) {
    const std::filesystem::path corpus(argv[1]);
    const std::filesystem::directory_iterator folder(corpus);
    const auto run = [target = lumbra::fuzzTargets().at(corpus.filename())](const std::string& name,
                                                                            const std::string& bytes) {
        std::fprintf(stderr, "%s\n", name.c_str());
        target({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    };
    std::vector<std::string> heads, pieces;
    for (const auto& path : std::set<std::filesystem::path>(begin(folder), end(folder))) {
        std::ifstream file(path, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        run(path, bytes);
        for (std::size_t at = 0, end = 0; at < bytes.size(); at = end) {
            end = std::min(bytes.find_first_of("\n)]", at), bytes.size() - 1) + 1;
            (at == 0 ? heads : pieces).push_back(bytes.substr(at, end - at));
        }
    }
    std::minstd_rand random(1);
    for (int mixture = 0; mixture < 1000; ++mixture) {
        auto bytes = heads.at(random() % heads.size());
        for (auto left = random() % 50; left > 0; --left)
            bytes += pieces.at(random() % pieces.size());
        if (mixture % 2 == 0)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        run("mixture: " + bytes, bytes);
    }
}
