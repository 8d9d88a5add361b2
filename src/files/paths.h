#pragma once

#include <string>

namespace zev {

/// `directory` + "/" + `name`, without any normalisation.
[[nodiscard]] std::string joinPath(const std::string& directory, const std::string& name);

enum class Presence {
    readable,
    absent,  ///< not there, not to be read by this user, or not a file that can be opened, such as a socket
    unknown  ///< the attempt itself failed, from a lack of descriptors or a device error, and says nothing
};

/// Tries to open the file for reading.
[[nodiscard]] Presence presenceOf(const std::string& path);

/// Whether the file is not absent. If that is unknown, opening the file will show it.
[[nodiscard]] bool fileExists(const std::string& path);

/// Creates a directory with mode 0750. True if the directory, or anything else of its name, exists afterwards.
[[nodiscard]] bool makeDirectory(const std::string& path);

/// Creates a directory and all above it, from the left, up to the first that cannot be created.
[[nodiscard]] bool makeDirectoryPath(const std::string& path);

}  // namespace zev
