#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace zev {

struct Fact {
    int32_t first = 0;      ///< where it first stands, in code units
    std::string shown;      ///< as it stands there
    std::string localName;  ///< of an address: without the parts that name the language of the text
};

/// What a translation has in common with its original, by what is compared of it: an address without "https://", "www."
/// and the punctuation after it; a number without the signs in it, so that 1,000.00 equals 1.000,00 and 4.0 equals 4,0,
/// whatever script its digits are of.
using Facts = std::map<std::string, Fact>;

/// The addresses of pages and of mail, and the numbers that are the same in all languages: those of four digits and
/// more, and those with a sign inside. Smaller ones can be words elsewhere. Of a date in digits only the year counts,
/// since other languages may have the month as a word.
[[nodiscard]] Facts factsOf(const icu::UnicodeString& text, std::string_view language);

}  // namespace zev
