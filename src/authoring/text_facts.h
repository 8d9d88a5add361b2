#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zev {

struct Fact {
    int32_t first = 0;  ///< its first place, in code units
    std::string shown;  ///< as it is written there
    /// Of an address: what it is without the parts that name the language of the text. It equals an address in another
    /// language if they have one such name in common.
    std::vector<std::string> localNames;
};

/// The facts of a text, by the form in which they are compared with those of the original: an address without
/// "https://", "www." and the punctuation after it; a number in digits of ASCII without the signs inside, so that
/// 1,000.00 equals 1.000,00 and 4.0 equals 4,0.
using Facts = std::map<std::string, Fact>;

/// The addresses of pages and of mail, and the numbers that are the same in all languages: those of four digits or
/// more, and those with a sign inside. Another language may write smaller numbers as words. Of a date in digits, only
/// the year counts, because another language may write the month as a word.
[[nodiscard]] Facts factsOf(const icu::UnicodeString& text, std::string_view language);

}  // namespace zev
