#include "authoring/language_profile.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "console/terminal_columns.h"
#include "lang/languages.h"

namespace zev {

namespace {

constexpr UScriptCode latin[]{USCRIPT_LATIN};
constexpr UScriptCode greek[]{USCRIPT_GREEK};
constexpr UScriptCode cyrillic[]{USCRIPT_CYRILLIC};
constexpr UScriptCode japanese[]{USCRIPT_HIRAGANA, USCRIPT_KATAKANA, USCRIPT_HAN};
constexpr UScriptCode korean[]{USCRIPT_HANGUL, USCRIPT_HAN};
constexpr UScriptCode chinese[]{USCRIPT_HAN, USCRIPT_BOPOMOFO};

constexpr const char* ascii[]{"US-ASCII"};
constexpr const char* western[]{"ISO-8859-1", "ISO-8859-15", "windows-1252"};
constexpr const char* central[]{"ISO-8859-2", "windows-1250"};
constexpr const char* baltic[]{"ISO-8859-13", "windows-1257"};
constexpr const char* turkish[]{"ISO-8859-9", "windows-1254"};
constexpr const char* greekPages[]{"ISO-8859-7", "windows-1253"};
constexpr const char* cyrillicPages[]{"KOI8-R", "ISO-8859-5", "windows-1251"};
constexpr const char* japanesePages[]{"EUC-JP", "Shift_JIS"};
constexpr const char* koreanPages[]{"EUC-KR"};
constexpr const char* simplifiedPages[]{"GB2312", "GBK"};
constexpr const char* traditionalPages[]{"Big5"};

constexpr LanguageProfile profiles[]{
    {"cs", latin, central, false},
    {"de", latin, western, false},
    {"el", greek, greekPages, false},
    {"en", latin, ascii, false},
    {"es", latin, western, false},
    {"fr", latin, western, false},
    {"it", latin, western, false},
    {"ja", japanese, japanesePages, true},
    {"ko", korean, koreanPages, true},
    {"lt", latin, baltic, false},
    {"pl", latin, central, false},
    {"pt", latin, western, false},
    {"ru", cyrillic, cyrillicPages, false},
    {"sl", latin, central, false},
    {"tr", latin, turkish, false},
    {"zh", chinese, simplifiedPages, true},
    {"zh_TW", chinese, traditionalPages, true},
};

constexpr const LanguageProfile* findProfile(std::string_view code) {
    return std::ranges::find(profiles, code, &LanguageProfile::code);
}

#define HAS_PROFILE(code, ...) static_assert(findProfile(#code) != std::end(profiles), #code " needs a profile");
ZEV_LANGUAGES(HAS_PROFILE)
#undef HAS_PROFILE

constexpr int64_t leastShareBesidesHan = 20;  ///< one in so many columns; Han alone is Chinese

}  // namespace

const LanguageProfile& profileOf(std::string_view code) { return *findProfile(code); }

std::vector<const char*> codePagesOfReaders(std::string_view code) {
    const auto own = profileOf(code).codePages;
    std::vector<const char*> codePages(own.begin(), own.end());
    if (code == "zh") std::ranges::copy(profileOf("zh_TW").codePages, std::back_inserter(codePages));
    return codePages;
}

bool isWrittenIn(const LanguageProfile& language, const icu::UnicodeString& text) {
    std::map<UScriptCode, int64_t> columns;
    int64_t all = 0;
    for (int32_t i = 0; i < text.length();) {
        const UChar32 character = text.char32At(i);
        i += U16_LENGTH(character);
        if (!u_isalpha(character)) continue;
        UErrorCode status = U_ZERO_ERROR;
        const int width = terminalColumns(character);
        columns[uscript_getScript(character, &status)] += width;
        all += width;
    }
    int64_t own = 0, besidesHan = 0;
    for (const UScriptCode script : language.scripts) {
        own += columns[script];
        if (script != USCRIPT_HAN) besidesHan += columns[script];
    }
    const bool isChinese = language.scripts.front() == USCRIPT_HAN;
    return 2 * own >= all && (isChinese || leastShareBesidesHan * besidesHan >= own);
}

}  // namespace zev
