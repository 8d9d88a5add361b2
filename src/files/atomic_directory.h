#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zev {

/// Files by name and bytes.
using DirectoryContent = std::vector<std::pair<std::string, std::string>>;

/// Makes `path` a directory of exactly these files, or leaves it as it was. The files are written to the disk in a new
/// directory beside it, which gets the mode and the group of the old one and is exchanged with it in one step. The next
/// run removes what a killed run left, unless others hold a lock on the parent directory for ten seconds. On failure
/// returns the cause, on success an empty text.
[[nodiscard]] std::string replaceDirectory(const std::string& path, const DirectoryContent& content);

}  // namespace zev
