#pragma once

namespace zev {

/// Runs zev-licenses with the arguments of its process. Returns the exit status.
[[nodiscard]] int runAuthoring(int argc, char** argv);

}  // namespace zev
