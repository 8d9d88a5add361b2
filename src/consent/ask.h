#pragma once

namespace zev {

/// The run of zev-ask. Returns the exit status of the process.
[[nodiscard]] int runAsk(int argc, char** argv);

}  // namespace zev
