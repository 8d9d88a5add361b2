#pragma once

#include <fstream>

#include "console/terminal_geometry.h"

namespace zev {

struct RunContext;

/// Shows the agreement on a screen of the given size and asks for the answer, which the command log receives if it is
/// open. Returns the exit status for the answer, or for a text that cannot be read or laid out.
[[nodiscard]] int runLicenseDialog(RunContext& context, ScreenSize size, std::ofstream commandLog = {});

}  // namespace zev
