#pragma once

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// Finds what an editor, a template or a conversion has left in a text: placeholders, notes to oneself, conflict
/// markers, markup and escapes. There is one finding for each type of them, at its first place. "[yyyy]", "____" and
/// Markdown occur in real licences and are not reported.
[[nodiscard]] Findings findLeftovers(const SetText& text);

}  // namespace zev
