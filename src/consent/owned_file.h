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
    /// Those of root and of the owner of the state directory.
    [[nodiscard]] static Owners ofState(const struct stat& state) { return {state.st_uid}; }
    /// In the directory of a group those of any user, if a record is all of one.
    [[nodiscard]] static Owners anyOne() { return {std::nullopt}; }

    /// Whether the owner and the mode of a file let it be part of a record.
    [[nodiscard]] bool accept(const struct stat& file);

private:
    Owners(std::optional<uid_t> owner) : isAnyOne_(!owner), owner_(owner) {}

    bool isAnyOne_;
    std::optional<uid_t> owner_;
};

/// The files below are opened in the directory of a descriptor. Links are not followed, and type, owner and size are
/// asked for before anything is read. `flaw` is what is wrong with a file, and nothing on success.

[[nodiscard]] Descriptor openOwnedDirectory(int parent, const std::string& name, Owners& owners, std::string& flaw);

/// A regular file that is open, of at most `mostBytes`.
[[nodiscard]] Descriptor openOwnedFile(int directory, const std::string& name, std::size_t mostBytes, Owners& owners,
                                       std::string& flaw);

/// The most bytes that a file of lines has, and a copy of a text.
inline constexpr std::size_t mostOfLines = 64 << 10;
inline constexpr std::size_t mostOfCopy = 256 << 20;

/// Appends a file of at most `mostBytes`.
[[nodiscard]] bool readOwned(int directory, const std::string& name, std::size_t mostBytes, Owners& owners,
                             std::string& bytes, std::string& flaw);

/// The SHA-256 of a file of any kind in a record.
[[nodiscard]] bool hashOwned(int directory, const std::string& name, Owners& owners, std::string& sum,
                             std::string& flaw);

}  // namespace zev
