#pragma once

#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zev {

/// How texts in a language are written.
struct LanguageProfile {
    const char* code;
    std::span<const UScriptCode> scripts;
    std::span<const char* const> codePages;  ///< ICU's names of the language's code pages that are not Unicode
    bool doubleWidth;                        ///< zev counts two columns for each character that is not ASCII
};

/// The profile of a language of the default set.
[[nodiscard]] const LanguageProfile& profileOf(std::string_view code);

/// The code pages of those who are shown a text of the language: its own, and for zh those of zh_TW too, because
/// readers of zh_TW are shown zh.
[[nodiscard]] std::vector<const char*> codePagesOfReaders(std::string_view code);

/// The frequent words of a language, in small letters with blanks between. Empty unless its script is Latin.
[[nodiscard]] std::u16string_view functionWordsOf(std::string_view code);

/// How much of a text is in the script of its language.
enum class ScriptFit { most, some, hardlyAny };

/// Letters count by the columns that they take on the screen, because a Chinese text may name many products in Latin
/// letters. Hardly any fit if Japanese has hardly any kana, or Korean hardly any Hangul. In a text without letters,
/// most fit.
[[nodiscard]] ScriptFit scriptFit(const LanguageProfile& language, const icu::UnicodeString& text);

/// Whether languages in Latin script can be told apart: without /proc, or memory for files, they cannot.
[[nodiscard]] bool knowsLanguages();

/// The language that a text fits clearly better than `code`; empty if there is none. Languages in Latin script are
/// compared by their frequent letter groups, unless the text is short; for the two ways of writing Chinese see
/// `betterChinese`. Each of the others has a script of its own.
[[nodiscard]] std::string clearlyBetterLanguage(const icu::UnicodeString& text, const std::string& code);

/// The code of the other way of writing Chinese, if the code page of that way has clearly more characters of a text
/// than the code page of `code`. Empty otherwise, and if `code` is not Chinese.
[[nodiscard]] std::string betterChinese(const icu::UnicodeString& text, const std::string& code);

/// The frequent letter groups of a language, in the format of libexttextcat.
struct LanguageModel {
    const char* code;
    std::string_view letterGroups;
};

/// The models of the languages in Latin script, as they came with libexttextcat when this was built.
[[nodiscard]] std::span<const LanguageModel> languageModels();

}  // namespace zev
