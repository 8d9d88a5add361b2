#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>

#include "files/directory_at.h"

namespace zev {

/// Whose files count as parts of records.
class Owners {
public:
    /// Those of root and of the owner of the state directory. If that is root, they count only if no other group can
    /// write to them.
    [[nodiscard]] static Owners ofState(const struct stat& state) { return {state.st_uid}; }
    /// Those of any user, as in the directory of a group, but the files of one record must all belong to one user.
    [[nodiscard]] static Owners anyOne() { return {std::nullopt}; }

    /// Whether the owner and the mode of a file let it be part of a record.
    [[nodiscard]] bool accept(const struct stat& file);

private:
    Owners(std::optional<uid_t> owner) : isAnyOne_(!owner), owner_(owner) {}

    bool isAnyOne_;
    std::optional<uid_t> owner_;
};

/// These functions open a file in the directory of a descriptor. They do not follow links, and check type, owner and
/// size before they read anything. On failure `flaw` says what is wrong with the file; on success it is not changed.

[[nodiscard]] Descriptor openOwnedDirectory(int parent, const std::string& name, Owners& owners, std::string& flaw);

/// Opens a regular file of at most `mostBytes`.
[[nodiscard]] Descriptor openOwnedFile(int directory, const std::string& name, std::size_t mostBytes, Owners& owners,
                                       std::string& flaw);

/// The largest size of a file of lines, of a log of versions, and of a copy of a text, in bytes.
inline constexpr std::size_t mostOfLines = 64 << 10;
inline constexpr std::size_t mostOfLog = 1 << 20;
inline constexpr std::size_t mostOfCopy = 256 << 20;

/// Appends the content of a file of at most `mostBytes` to `bytes`.
[[nodiscard]] bool readOwned(int directory, const std::string& name, std::size_t mostBytes, Owners& owners,
                             std::string& bytes, std::string& flaw);

/// Computes the SHA-256 of a file of a record.
[[nodiscard]] bool hashOwned(int directory, const std::string& name, Owners& owners, std::string& sum,
                             std::string& flaw);

}  // namespace zev
