#pragma once

#include <filesystem>
#include <string>

namespace lumbra {

/// The file that a write to `path` reaches or would make: absolute, with all symbolic links followed, even one
/// that leads to a file that is not there yet. Any thread.
std::filesystem::path followed(const std::string& path);

/// True if two names are of one file, which need not be there yet. Any thread.
bool areOneFile(const std::string& one, const std::string& other);

} // namespace lumbra
