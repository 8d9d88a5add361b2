#pragma once

#include <string>

#include "files/directory_at.h"

namespace zev {

/// A private directory inside a state or master directory, in which a run works. It holds a locked file while the run
/// lives, and goes with the run.
struct Scratch {
    Descriptor directory;  ///< none when it could not be made
    Descriptor lock;
    std::string problem;
};

[[nodiscard]] Scratch openScratch(int parent);

/// Removes what killed runs of this user left in a directory: scratch that no run holds locked and that is older than a
/// minute, or than a day where there are no locks.
void clearLeftovers(int parent);

}  // namespace zev
