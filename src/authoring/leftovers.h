#pragma once

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// Finds what an editor, a template or a conversion has left in a text: placeholders, notes to oneself, conflict
/// markers, markup and escapes. One finding for each sort of them, where the first stands. What real licences have is
/// left alone: "[yyyy]", "____", Markdown.
[[nodiscard]] Findings findLeftovers(const SetText& text);

}  // namespace zev
