#pragma once

#include <string>

namespace zev {

/// `directory` + "/" + `name`, without any normalisation.
[[nodiscard]] std::string joinPath(const std::string& directory, const std::string& name);

/// Whether an input stream can open the file.
[[nodiscard]] bool fileExists(const std::string& path);

/// Creates a directory with mode 0750. True when it exists afterwards, or something else of its name does.
[[nodiscard]] bool makeDirectory(const std::string& path);

/// Creates a directory and all above it, from the left, up to the first that cannot be created.
[[nodiscard]] bool makeDirectoryPath(const std::string& path);

}  // namespace zev
