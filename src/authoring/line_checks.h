#pragma once

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// Finds what harms the lines of a text on a terminal of the usual width: lines that are wrapped for another width,
/// words and wide characters that make a line overflow, carriage returns, and an agreement without a line feed at its
/// end. In `notices`, which are copied and never shown, it looks for carriage returns only.
[[nodiscard]] Findings checkLines(const SetText& text);

}  // namespace zev
