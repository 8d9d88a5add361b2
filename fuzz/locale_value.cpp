// The locale variables must be read as POSIX says. Whatever they hold, there must be a catalogue and a way to break
// lines. Input: LC_ALL, LC_CTYPE and LANG, each ended by a NUL; a variable that is missing is not set.

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <map>

#include "console/license_dialog.h"
#include "console/line_breaking.h"
#include "lang/environment_locale.h"
#include "lang/locale_choice.h"
#include "support.h"

namespace zev::fuzz {
namespace {

/// The pieces of a value by the mark before them, 0 for the language. Only the first piece after a mark counts.
using Pieces = std::map<char, std::string>;

Pieces piecesOf(const std::string& value) {
    if (ucnv_compareNames(value.c_str(), "UTF-8") == 0) return {{'.', value}};
    Pieces pieces;
    char current = '\0';
    for (const char c : value) {
        if ((c == '.' || c == '@') && c != current) {
            current = pieces.contains(c) ? '!' : c;
            pieces[current];
        } else {
            pieces[current] += c;
        }
    }
    return pieces;
}

std::string localeName(Pieces pieces) {
    std::string& language = pieces['\0'];
    const std::string& modifier = pieces['@'];
    if (language == "C" || language == "POSIX" || (language + modifier).empty()) language = "en_US_POSIX";
    if (modifier.empty()) return language;
    return language + (language.find('_') == std::string::npos ? "__" : "_") + modifier;
}

bool isCodePage(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(name.c_str(), &status));
    return !name.empty() && U_SUCCESS(status);
}

/// The locale of a name as ICU writes names, without a name if ICU refuses it. ICU reads the name of the default once
/// more.
icu::Locale canonicalLocale(const std::string& name) {
    static std::array<char, 1 << 16> canonical;
    UErrorCode status = U_ZERO_ERROR;
    uloc_canonicalize(name.c_str(), canonical.data(), static_cast<int32_t>(canonical.size()), &status);
    const icu::Locale locale(U_SUCCESS(status) ? canonical.data() : "");
    return icu::Locale(locale.getName());
}

/// Whether a name has the form of a locale name. How ICU spells other names depends on how often it has read them.
bool isPlain(const std::string& name) {
    return name.find("___") == std::string::npos &&
           std::ranges::all_of(name, [](unsigned char c) { return c < 0x80 && (std::isalnum(c) != 0 || c == '_'); });
}

/// Sets the variables. The result has the pieces of each by its name.
std::map<std::string, Pieces> setVariables(Input input) {
    std::map<std::string, Pieces> all;
    for (const std::string name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        unsetenv(name.c_str());
        if (input.rest().empty()) continue;
        const std::string value = input.upTo('\0');
        setenv(name.c_str(), value.c_str(), 1);
        all[name] = piecesOf(value);
    }
    return all;
}

void checkLocale(Input input) {
    auto pieces = setVariables(input);
    Pieces first = pieces["LANG"];
    for (const char* winner : {"LC_CTYPE", "LC_ALL"}) {
        if (!pieces[winner].empty()) first = pieces[winner];
    }
    adoptEnvironmentLocale();

    const std::string codeSet = first['.'];
    requireEqual(codePageName(), isCodePage(codeSet) ? codeSet : "US-ASCII", "the code page is the value's or ASCII");
    if (first['\0'].empty() && !codeSet.empty()) first = pieces["LANG"];
    const std::string name = localeName(first);
    const icu::Locale expected = canonicalLocale(name);
    requireEqual(icu::Locale().getLanguage(), expected.getLanguage(), "the language is the value's");
    if (isPlain(name)) requireEqual(icu::Locale().getName(), expected.getName(), "the locale is the value's");

    RunContext context = createRunContext("", "", 4);
    require(context.resource != nullptr, "there is a catalogue");
    const auto lines = breakText(LicenseDialog(context), u"a b", 80);
    require(lines && lines->size() == 1 && (*lines)[0] == u"a b\n", "lines can be broken");
}

}  // namespace
}  // namespace zev::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    zev::fuzz::checkLocale({data, size});
    return 0;
}
