#pragma once

#include <string>

namespace zev {

/// A directory as a result line begins with it: without the slashes at its end.
[[nodiscard]] std::string nameOfDirectory(std::string directory);

/// Says on standard error why the command cannot do its work. Returns the exit status for that.
[[nodiscard]] int cannotWork(const std::string& reason);

}  // namespace zev
