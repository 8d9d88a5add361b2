#pragma once

#include <span>
#include <string>

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// Checks what texts hold, each by itself and compared with the original: the text of the same kind in the language
/// `standIn`, or in English if that is empty. A text that equals the original is no translation and is not judged as
/// one; it is a finding unless `standIn` is given. Findings come text by text, then by line.
///
/// Line ends are line feeds: whoever checks sources makes them so first, which does not change the numbers of lines.
[[nodiscard]] Findings checkTexts(std::span<const SetText> texts, const std::string& standIn);

}  // namespace zev
