#pragma once

#include <string>
#include <vector>

#include "authoring/language_profile.h"
#include "lang/language_table.h"

namespace zev {

enum class TextKind { agreement, information, otherPartiesTerms, notices };

/// A file of a licence set.
struct SetFile {
    std::string name;
    TextKind kind;
    const LanguageProfile* language;  ///< null for the two that serve all languages, which are optional
};

/// The files of a language set, in the order of its languages, the agreement before the information; those for all
/// languages last.
[[nodiscard]] std::vector<SetFile> filesOfSet(int languageSet);

}  // namespace zev
