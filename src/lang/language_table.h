#pragma once

#include <span>

namespace zev {

struct RunContext;

/// A language in which an agreement can be delivered.
struct LanguageEntry {
    const char* code;         ///< ISO 639-1, or "zh_TW"; the suffix of the licence file names
    const char* englishName;  ///< the base name of the licence copy
};

/// The languages of a set, in the order of matching and recording; none if there is no such set.
[[nodiscard]] std::span<const LanguageEntry> languagesOfSet(int languageSet);

/// How many languages the context's set has; 0 if there is no such set.
[[nodiscard]] unsigned languageCount(const RunContext& context);

/// The language of the set with an index from 0 upwards, in the order of matching and recording; null after the last.
[[nodiscard]] const LanguageEntry* languageEntry(const RunContext& context, unsigned index);

/// The first code of the active set with which `language` begins, or null. Deliberately "zh" for "zh_TW" too: the
/// traditional Chinese entry takes part in checks and copies, and is never the display language.
[[nodiscard]] const char* matchLanguage(const RunContext& context, const char* language);

}  // namespace zev
