#pragma once

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// Finds the characters that do harm, alone or in their word: one finding for each kind, at its first place. In
/// `notices`, which are copied and never shown, only what harms the copy is a finding.
[[nodiscard]] Findings checkCharacters(const SetText& text);

/// Finds Latin letters that are in no code page of the language, if they are so many that the text must have been
/// converted from a wrong one.
[[nodiscard]] Findings checkForeignLetters(const SetText& text);

}  // namespace zev
