#pragma once

#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <span>
#include <string_view>
#include <vector>

namespace zev {

/// What an author's text in one language is made of.
struct LanguageProfile {
    const char* code;
    std::span<const UScriptCode> scripts;
    std::span<const char* const> codePages;  ///< ICU's names of those of the language that are not Unicode
    bool doubleWidth;                        ///< zev counts two columns for what is not ASCII
};

/// The profile of a language of the default set.
[[nodiscard]] const LanguageProfile& profileOf(std::string_view code);

/// The code pages of those who are shown a text of the language: its own, and for zh those of zh_TW, whose readers are
/// shown zh.
[[nodiscard]] std::vector<const char*> codePagesOfReaders(std::string_view code);

/// Whether most letters are of the language's scripts, by the columns that they take on the screen: a Chinese text may
/// name many products in Latin letters. Japanese must show some kana, Korean some Hangul. True for a text without
/// letters.
[[nodiscard]] bool isWrittenIn(const LanguageProfile& language, const icu::UnicodeString& text);

}  // namespace zev
