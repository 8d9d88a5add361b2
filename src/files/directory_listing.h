#pragma once

#include <string>
#include <vector>

namespace zev {

/// The names in a directory in the order of their bytes. False, and `problem` names the directory and says why, when it
/// cannot be read.
[[nodiscard]] bool listDirectory(const std::string& directory, std::vector<std::string>& names, std::string& problem);

}  // namespace zev
