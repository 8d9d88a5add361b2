#include "authoring/language_profile.h"

#include <sys/mman.h>
#include <unicode/uchar.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>

#include "authoring/finding.h"
#include "console/code_page_loss.h"
#include "console/terminal_columns.h"
#include "lang/languages.h"

extern "C" {
#include <libexttextcat/common.h>
#include <libexttextcat/fingerprint.h>
}

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

/// The frequent words of each language in Latin script, which any text has, whatever it is about.
constexpr struct {
    std::string_view code;
    std::u16string_view words;
} functionWords[]{
    {"cs", u"a aby ani být či do i jako je jeho jejich její jsou k každý které který ke li na nad ne nebo není o od po "
           u"pod podle pokud pro při s se si své svého ta tak také takové této těchto tím to tohoto tomto tyto u v "
           u"vaše ve vy z za ze že"},
    {"de", u"als auch auf aus bei bis das dass dem den der des die diese dieser dieses durch ein eine einem einen "
           u"einer eines er es für hat haben ihnen ihre ihrer im in ist kann können mit nach nicht oder sein sich sie "
           u"sind so soweit und unter vom von vor werden wie wird zu zum zur über"},
    {"en",
     u"a all an and any are as at be been but by do for from has have if in into is it its may no not of on or other "
     u"shall such than that the their these they this those to under was were which will with without you your"},
    {"es", u"a al como con cualquier de del e el ella en es esta este esté están ha la las le lo los más ni no o para "
           u"pero por que se según ser si sin sobre son su sus también u un una usted y"},
    {"fr",
     u"a au aucun aux avec ce ces cette d dans de des du elle en est et il ils l la le les leur lui n ne ni non ou par "
     u"pas peut plus pour qu que qui s sa sans se ses son sont sous sur tout toute un une vos votre vous à être"},
    {"it",
     u"a ad ai al alla alle anche che chi come con da dal dalla degli dei del della delle di e ed essere gli i il in l "
     u"la le lo ma nel nella non o ogni per più qualsiasi quale se si sia sono su sul tale tra un una uno è"},
    {"lt",
     u"ar arba apie bei be bet būti dėl iki ir iš į jei jeigu jo jos jų jūs jūsų kad kai kaip kiti kuri kurie kurio "
     u"kurios kuris ne nei nėra nuo o pagal per po prie šį ši šią šio šios šis su ta tai tais tam to už visi yra"},
    {"pl", u"a aby albo ale ani bez być dla do i ich innych jak jako jego jej jest jeśli jeżeli każdy lub ma może na "
           u"nad nie niniejszej niniejszego o od oraz po pod przez przy są się tego tej ten to tych tylko tym u w we z "
           u"za ze że której który która które którego"},
    {"pt",
     u"a ao aos as com como da das de do dos e em entre esta este está for mais na nas nem no nos não o os ou para "
     u"pela pelas pelo por qualquer quando que se sem ser seu seus sob sobre sua suas são também um uma você à às é"},
    {"sl", u"ali ampak bi bo brez če da do in iz je jih k ki ko kot lahko med na ne ni o ob od oziroma po pod pri s se "
           u"si so ta te tega tem ter to v vaš vaše več vi vse za z že"},
    {"tr", u"ancak ama bir bu bunlar da daha de değil diğer en gibi hangi hem her herhangi hiçbir için ile ise kadar "
           u"ki kendi mi ne olan olarak olduğu ona onun sadece siz size sizin tarafından tüm üzere var ve veya ya"},
};

constexpr bool hasWordsIfLatin(std::string_view code) {
    const auto entry = std::ranges::find_if(functionWords, [&](const auto& row) { return row.code == code; });
    return findProfile(code)->scripts.data() != latin || entry != std::end(functionWords);
}

#define HAS_WORDS(code, ...) static_assert(hasWordsIfLatin(#code), #code " needs function words");
ZEV_LANGUAGES(HAS_WORDS)
#undef HAS_WORDS

constexpr int64_t leastShareBesidesHan = 20;  ///< one in so many columns; a text with fewer is Chinese
constexpr int64_t leastShareOfSome = 10;      ///< one in so many columns; even a text that names many products has more

/// Of the characters of a text, those that one code page of Chinese lacks and the other has. Names from the other side
/// have some, but by far not so many.
constexpr double clearlyMoreLost = 0.10;

constexpr int letterGroups = 400;      ///< in each model of the library
constexpr int32_t shortestText = 400;  ///< code units; a shorter text is often taken for another language
constexpr double clearly =
    1.05;  ///< so many times as far from its own language as from the nearest; less can be chance
constexpr int noLimit = 1 << 30;  ///< for the library, which stops a comparison at the limit

using Fingerprint = std::unique_ptr<void, decltype([](void* fingerprint) { fp_Done(fingerprint); })>;

Fingerprint newFingerprint(const char* name) {
    Fingerprint fingerprint(fp_Init(name));
    fp_SetProperty(fingerprint.get(), TCPROP_UTF8AWARE, TC_TRUE);
    return fingerprint;
}

/// The library reads its models from files, so each is written to a file in memory first. Null on failure.
Fingerprint readModel(const LanguageModel& model) {
    const int file = memfd_create(model.code, MFD_CLOEXEC);
    if (file < 0) return nullptr;
    Fingerprint fingerprint = newFingerprint(model.code);
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    const auto size = static_cast<ssize_t>(model.letterGroups.size());
    const bool read = write(file, model.letterGroups.data(), model.letterGroups.size()) == size &&
                      fp_Read(fingerprint.get(), path.c_str(), letterGroups) != 0;
    close(file);
    return read ? std::move(fingerprint) : nullptr;
}

const std::vector<Fingerprint>& knownLanguages() {
    static const std::vector<Fingerprint> known = [] {
        std::vector<Fingerprint> models;
        for (const LanguageModel& model : languageModels()) {
            if (Fingerprint fingerprint = readModel(model)) models.push_back(std::move(fingerprint));
        }
        return models;
    }();
    return known;
}

}  // namespace

const LanguageProfile& profileOf(std::string_view code) { return *findProfile(code); }

std::vector<const char*> codePagesOfReaders(std::string_view code) {
    const auto own = profileOf(code).codePages;
    std::vector<const char*> codePages(own.begin(), own.end());
    if (code == "zh") std::ranges::copy(profileOf("zh_TW").codePages, std::back_inserter(codePages));
    return codePages;
}

std::u16string_view functionWordsOf(std::string_view code) {
    for (const auto& [language, words] : functionWords) {
        if (language == code) return words;
    }
    return {};
}

ScriptFit scriptFit(const LanguageProfile& language, const icu::UnicodeString& text) {
    int64_t all = 0, own = 0, besidesHan = 0;
    for (int32_t i = 0, next; i < text.length(); i = next) {
        const UChar32 character = text.char32At(i);
        next = i + U16_LENGTH(character);
        if (!u_isalpha(character)) continue;
        const int width = terminalColumns(character);
        UErrorCode status = U_ZERO_ERROR;
        const UScriptCode script = uscript_getScript(character, &status);
        const bool isOwn = std::ranges::find(language.scripts, script) != language.scripts.end();
        all += width;
        own += isOwn ? width : 0;
        besidesHan += isOwn && script != USCRIPT_HAN ? width : 0;
    }
    const bool isChinese = language.scripts.front() == USCRIPT_HAN;
    if (leastShareOfSome * own < all || (!isChinese && leastShareBesidesHan * besidesHan < own)) {
        return ScriptFit::hardlyAny;
    }
    return 2 * own >= all ? ScriptFit::most : ScriptFit::some;
}

std::string betterChinese(const icu::UnicodeString& text, const std::string& code) {
    const bool isTraditional = code == "zh_TW";
    if (!isTraditional && code != "zh") return "";
    const auto lost = [&](bool traditional) { return lossIn(traditional ? "Big5" : "GB2312", text).count(); };
    const auto limit = static_cast<std::size_t>(clearlyMoreLost * text.length());
    return lost(isTraditional) > lost(!isTraditional) + limit ? (isTraditional ? "zh" : "zh_TW") : "";
}

bool knowsLanguages() { return !knownLanguages().empty(); }

std::string clearlyBetterLanguage(const icu::UnicodeString& text, const std::string& code) {
    if (std::string better = betterChinese(text, code); !better.empty()) return better;
    const auto hasCode = [&](const Fingerprint& language) { return fp_Name(language.get()) == code; };
    if (text.length() < shortestText || std::ranges::none_of(knownLanguages(), hasCode)) return "";
    constexpr int32_t enough = 1 << 16;
    std::string bytes = utf8Of(text.tempSubString(0, enough));
    const Fingerprint unknown = newFingerprint(nullptr);
    if (fp_Create(unknown.get(), bytes.data(), static_cast<uint4>(bytes.size()), letterGroups) == 0) return "";

    std::map<std::string, double> distances;
    for (const Fingerprint& language : knownLanguages()) {
        distances[fp_Name(language.get())] = fp_Compare(language.get(), unknown.get(), noLimit);
    }
    const auto best = std::ranges::min_element(distances, {}, [](const auto& entry) { return entry.second; });
    return distances[code] > clearly * best->second ? best->first : "";
}

}  // namespace zev
