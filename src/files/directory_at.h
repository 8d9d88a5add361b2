#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/descriptor.h"

/// Files reached through the descriptor of their directory, whatever becomes of its path meanwhile. A link in the place
/// of a name is never followed. On failure errno has the cause.
namespace zev {

[[nodiscard]] Descriptor openDirectoryAt(int parent, const std::string& name);

/// The names in a directory in the order of their bytes. False when it cannot be read.
[[nodiscard]] bool listAt(int directory, std::vector<std::string>& names);

/// Writes all of the bytes, however many calls that takes.
[[nodiscard]] bool writeAll(int file, std::string_view bytes);

/// Creates a file that was not there, of mode 0644 whatever the umask, and writes it.
[[nodiscard]] bool createFileAt(int directory, const std::string& name, std::string_view bytes);

/// Brings a file or a directory to the disk. A file system that cannot do that for directories is no failure.
[[nodiscard]] bool syncAt(int parent, const std::string& name);

/// Removes all that is in a directory, as far as that can be done. Async-signal-safe.
void emptyDirectory(int directory) noexcept;

/// Removes an empty directory if it is the one of a descriptor, and not another that took its name. Async-signal-safe.
void removeDirectoryAt(int parent, const char* name, int directory) noexcept;

}  // namespace zev
