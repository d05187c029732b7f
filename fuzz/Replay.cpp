#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Runs a fuzz target on every file of the folder that is named, then on mixtures of their lines, reports and commands,
/// the same in each run. A check that fails aborts; what is named last is then its input.
int main(int argc, char** argv) {
    const std::filesystem::directory_iterator folder(argc > 1 ? argv[1] : ".");
    const auto run = [](const std::string& name, const std::string& bytes) {
        std::fprintf(stderr, "%s\n", name.c_str());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
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
