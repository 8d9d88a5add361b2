#pragma once

#include <string>

#include "files/directory_at.h"

namespace zev {

/// A private directory inside a state or master directory, in which a run works. While the run lives, the directory
/// holds a locked file; when the run ends, the directory is removed.
struct Scratch {
    Descriptor directory;  ///< not open if the directory could not be made; `problem` then says why
    Descriptor lock;
    std::string problem;
};

[[nodiscard]] Scratch openScratch(int parent);

/// Removes the scratch directories that killed runs of this user left in `parent`: those whose file no run has locked
/// and that are older than a minute, or than a day if the file system has no locks.
void clearLeftovers(int parent);

}  // namespace zev
