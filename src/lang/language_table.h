#pragma once

#include <cstddef>
#include <span>

namespace zev {

struct RunContext;

/// A language in which an agreement can be delivered.
struct LanguageEntry {
    const char* code;         ///< ISO 639-1, or "zh_TW"; the suffix of the licence file names
    const char* englishName;  ///< the base name of the licence copy
};

/// The languages of the context's set, in the order that matching and recording follow; none for an unknown set.
[[nodiscard]] std::span<const LanguageEntry> activeLanguages(const RunContext& context);

[[nodiscard]] unsigned languageCount(const RunContext& context);

/// Null when `index` is not below the count.
[[nodiscard]] const LanguageEntry* languageEntry(const RunContext& context, unsigned index);

/// The first code of the active set with which `language` begins, or null. Deliberately "zh" for "zh_TW" too: the
/// traditional Chinese entry takes part in checks and copies, and is never the display language.
[[nodiscard]] const char* matchLanguage(const RunContext& context, const char* language);

}  // namespace zev
