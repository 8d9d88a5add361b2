#pragma once

#include <span>
#include <string>

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// Checks each text by itself, and compares it with the original: the text of the same kind in the language `standIn`,
/// or in English if that is empty. A text that equals the original is not judged as a translation; it is a finding
/// unless `standIn` is given; then it has no finding that the original has too. Findings are in the order of the texts,
/// and in each text by line.
///
/// Lines end in line feeds. The caller replaces other line ends of sources first, and keeps the numbers of the lines.
[[nodiscard]] Findings checkTexts(std::span<const SetText> texts, const std::string& standIn);

}  // namespace zev
