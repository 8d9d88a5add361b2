#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <map>
#include <string>

namespace zev {

/// The characters that a code page lacks, and how many of each a text loses to it.
struct CodePageLoss {
    std::map<UChar32, std::size_t> characters;

    [[nodiscard]] std::size_t count() const;
    /// The characters themselves, the most frequent first and not more than a line holds, such as "“ ” U+00AD".
    [[nodiscard]] std::string list() const;
};

/// The name of a character without a shape to show, such as "U+00AD".
[[nodiscard]] std::string codePointName(UChar32 character);

[[nodiscard]] bool isCodePage(const std::string& name);

/// Converts a text as zev writes it to a terminal and to the copies. Nothing is lost if ICU does not know the name.
[[nodiscard]] CodePageLoss lossIn(const std::string& codePage, const icu::UnicodeString& text);

}  // namespace zev
