#pragma once

#include <unicode/unistr.h>

#include <span>
#include <string>

#include "authoring/finding.h"
#include "authoring/set_files.h"

namespace zev {

/// The text of a file of a set, whatever its encoding was.
struct SetText {
    SetFile file;
    std::string path;  ///< as the user can open it
    icu::UnicodeString text;

    [[nodiscard]] NamedFile namedFile() const { return {path, file.name}; }
};

/// Checks what texts hold, each by itself and the languages against each other. A text that equals that of the language
/// `standIn` stands in for a translation and is not judged as one; none does where it is empty. Findings come text by
/// text, then by line.
[[nodiscard]] Findings checkTexts(std::span<const SetText> texts, const std::string& standIn);

}  // namespace zev
