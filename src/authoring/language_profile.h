#pragma once

#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <span>
#include <string>
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

/// The words that a text in the language is full of, in small letters with blanks between. Empty unless its script is
/// Latin.
[[nodiscard]] std::u16string_view functionWordsOf(std::string_view code);

/// How much of a text is in the script of its language.
enum class ScriptFit { most, some, hardlyAny };

/// Counts letters by the columns that they take on the screen: a Chinese text may name many products in Latin letters.
/// Japanese must show some kana, Korean some Hangul, else hardly any fit. Most do in a text without letters.
[[nodiscard]] ScriptFit scriptFit(const LanguageProfile& language, const icu::UnicodeString& text);

/// The language as which a text reads clearly better than as `code`, empty if there is none. In Latin script this
/// compares frequent letter groups, unless the text is short; for the two ways of writing Chinese see `betterChinese`.
/// Each of the others has a script of its own.
[[nodiscard]] std::string clearlyBetterLanguage(const icu::UnicodeString& text, const std::string& code);

/// The other way of writing Chinese, if a text in `code` has clearly more characters that only a code page of that has.
/// Empty otherwise, and if `code` is another language.
[[nodiscard]] std::string betterChinese(const icu::UnicodeString& text, const std::string& code);

/// What a text in one language is compared with: its frequent letter groups, in the format of libexttextcat.
struct LanguageModel {
    const char* code;
    std::string_view letterGroups;
};

/// The models of the languages in Latin script, as they came with libexttextcat when this was built.
[[nodiscard]] std::span<const LanguageModel> languageModels();

}  // namespace zev
