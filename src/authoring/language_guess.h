#pragma once

#include <unicode/unistr.h>

#include <string>

namespace zev {

/// The language as which a text reads clearly better than as `code`, of those that both are written in Latin script;
/// empty where there is none, the text is short or `code` is of another script. Compares frequent letter groups.
[[nodiscard]] std::string clearlyBetterLanguage(const icu::UnicodeString& text, const std::string& code);

}  // namespace zev
