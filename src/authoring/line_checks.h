#pragma once

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// Finds what harms the lines of a text on a terminal of the usual width, and its line ends: what is wrapped for
/// another width, words and wide characters that make a line overflow, carriage returns, an agreement without a line
/// feed at its end. Of `notices`, which are copied and never shown, only the line ends are looked at.
[[nodiscard]] Findings checkLines(const SetText& text);

}  // namespace zev
