#pragma once

#include <string>

namespace zev {

struct FileContent {
    std::string bytes;
    std::string problem;  ///< why the file could not be read, for the user; empty on success

    [[nodiscard]] bool good() const { return problem.empty(); }
};

inline constexpr const char* missingFile = "missing";

/// Reads a regular file, or what a link to one leads to. Does not wait for anything: a pipe or a device is a problem.
[[nodiscard]] FileContent readRegularFile(const std::string& path);

}  // namespace zev
