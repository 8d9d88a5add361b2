#pragma once

#include <unicode/unistr.h>

#include <string>

namespace zev {

/// The language as which a text reads clearly better than as `code`, empty where there is none. In Latin script
/// compares frequent letter groups, unless the text is short; tells the two ways of writing Chinese apart by their code
/// pages. Of the others each has a script of its own.
[[nodiscard]] std::string clearlyBetterLanguage(const icu::UnicodeString& text, const std::string& code);

}  // namespace zev
