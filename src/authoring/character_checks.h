#pragma once

#include <unicode/unistr.h>

#include "authoring/finding.h"
#include "authoring/language_profile.h"

namespace zev {

/// Who meets the text of a file: whoever reads the screen, and then its copy, or only whoever opens the copy.
enum class Readers { ofScreenAndCopy, ofCopy };

/// Finds the characters that do harm: one finding a kind, where the first stands. `language` is null for the files
/// that serve all languages.
[[nodiscard]] Findings checkCharacters(const NamedFile& file, const icu::UnicodeString& text,
                                       const LanguageProfile* language, Readers readers);

}  // namespace zev
