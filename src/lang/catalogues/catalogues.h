#pragma once

#include "lang/catalogue_texts.h"
#include "lang/languages.h"

/// The texts of the catalogues, each defined in the file of its language.
namespace zev::catalogues {

/// What the East Asian catalogues have in English.
inline constexpr const char* englishTitle = escaped<u"Software Licensing Agreement">;
inline constexpr const char* englishLanguageQuestion =
    escaped<u"Please enter the number that corresponds to the language you prefer.\n">;
inline constexpr const char* englishTwelveLanguages = escaped<
    u"Software Licensing Agreement\n"
    u"1. English\n"
    u"2. Danish\n"
    u"3. Dutch\n"
    u"4. Finnish\n"
    u"5. French\n"
    u"6. German\n"
    u"7. Italian\n"
    u"8. Norwegian\n"
    u"9. Portuguese\n"
    u"10. Russian\n"
    u"11. Spanish\n"
    u"12. Swedish\n">;

#define TEXTS(code, ...) extern const CatalogueTexts code;
ZEV_LANGUAGES(TEXTS)
#undef TEXTS

}  // namespace zev::catalogues
