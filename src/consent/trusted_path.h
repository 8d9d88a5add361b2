#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <string>
#include <vector>

#include "files/directory_at.h"

namespace zev {

/// Whether a user is root or, in a user namespace, the id that stands for all users outside.
[[nodiscard]] bool isRoots(uid_t owner);

/// Whether a user is one of these or the caller.
[[nodiscard]] bool isTrustedOwner(uid_t owner);

/// Whether a group other than that of root can write to a file or directory.
[[nodiscard]] bool isOpenToGroup(const struct stat& status);

enum class DirectoryUse {
    state,  ///< the directory itself must be as safe as those above it
    master  ///< any user may own it, who may then own directories above it too; its group may write to it
};

/// A directory on whose path no other user could have replaced a directory or a link.
struct TrustedDirectory {
    Descriptor descriptor;  ///< opened with O_PATH; not open if the directory is not there
    std::string problem;    ///< which directory of the path is not safe, or cannot be opened, and what to do about it
};

/// Opens the directory of an absolute path, step by step from the root. Each directory of the path must belong to a
/// trusted owner. If everyone can write to it, it must have the sticky bit, and it is not a master directory. If the
/// caller is root, no group other than that of root may be able to write to it, except to a master directory. Only
/// links that root or the caller owns are followed.
[[nodiscard]] TrustedDirectory openTrusted(const std::string& path, DirectoryUse use);

/// Does the same, and creates missing directories with mode 0755. They are registered in way_out.
[[nodiscard]] TrustedDirectory makeTrusted(const std::string& path, DirectoryUse use);

}  // namespace zev
