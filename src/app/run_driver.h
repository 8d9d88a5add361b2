#pragma once

namespace zev {

/// The whole run, from the environment to the exit report. Returns the exit status of the process.
[[nodiscard]] int runDriver(int argc, char** argv);

}  // namespace zev
