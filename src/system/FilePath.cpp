#include "system/FilePath.h"

#include <system_error>

namespace lumbra {

namespace fs = std::filesystem;

fs::path followed(const std::string& path) {
    constexpr int MOST_LINKS = 40; // as many as Linux follows
    std::error_code error;
    auto file = fs::absolute(path, error);
    for (int links = 0; links < MOST_LINKS && fs::is_symlink(file, error); ++links)
        file = file.parent_path() / fs::read_symlink(file, error);
    auto canonical = fs::weakly_canonical(file, error);
    return error ? file : canonical;
}

bool areOneFile(const std::string& one, const std::string& other) {
    const auto first = followed(one), second = followed(other);
    std::error_code error;
    return first == second || fs::equivalent(first, second, error);
}

} // namespace lumbra
