#pragma once

#include <fstream>

#include "console/terminal_geometry.h"

namespace zev {

struct RunContext;

/// Shows the agreement on a screen of the given size and asks for the answer, which the command log receives if it is
/// open. Returns the exit status that stands for the answer, or for the failure to have or to lay out a text.
[[nodiscard]] int runLicenseDialog(RunContext& context, ScreenSize size, std::ofstream commandLog = {});

}  // namespace zev
