#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <string>
#include <vector>

#include "files/directory_at.h"

namespace zev {

/// Whether a uid is that of root, of the caller or, in a user namespace, the one that stands for all users outside.
[[nodiscard]] bool isTrustedOwner(uid_t owner);

/// Whether, for root, a directory is one to which others can write through a group that is not that of root.
[[nodiscard]] bool isOpenToGroup(const struct stat& directory);

enum class DirectoryUse {
    state,  ///< the directory itself has to be as safe as those above it
    master  ///< it may belong to another user, who then may own directories above it too, and its group may write to it
};

/// A directory whose path nobody else can lead elsewhere.
struct TrustedDirectory {
    Descriptor descriptor;  ///< with O_PATH; none where the directory is not there
    std::string problem;    ///< which directory of the path is not safe, or cannot be opened, and what to do about it
};

/// Opens the directory of an absolute path, step by step from the root. Each directory of the path must belong to a
/// trusted owner, must not be one to which the world can write unless it has the sticky bit, and, if the caller is
/// root, not one to which a group other than that of root can write. Links that root or the caller owns are followed.
[[nodiscard]] TrustedDirectory openTrusted(const std::string& path, DirectoryUse use);

/// The same, and creates what is missing with mode 0755. The directories that it made are registered in the way out.
[[nodiscard]] TrustedDirectory makeTrusted(const std::string& path, DirectoryUse use);

}  // namespace zev
