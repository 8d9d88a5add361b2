#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zev {

/// Files by name and bytes.
using DirectoryContent = std::vector<std::pair<std::string, std::string>>;

/// Makes `path` a directory of exactly these files, or leaves it as it was: they are written into a new directory
/// beside it, brought to the disk and exchanged with the old one, whose mode and group it gets, in one step. What is
/// left of a run that was killed is cleared by the next, unless others hold a lock on the parent directory for ten
/// seconds. Returns why it could not be done, or nothing.
[[nodiscard]] std::string replaceDirectory(const std::string& path, const DirectoryContent& content);

}  // namespace zev
