#include "lang/environment_locale.h"

#include <unicode/putil.h>
#include <unicode/ucnv.h>
#include <unicode/udata.h>
#include <unicode/uloc.h>

#include <array>
#include <cstdlib>
#include <initializer_list>
#include <ostream>
#include <string_view>

namespace zev {

namespace {

constexpr const char* fallbackCodePage = "US-ASCII";

struct CodePage {
    std::string name;
    icu::LocalUConverterPointer converter;
};
CodePage processCodePage;

/// The pieces of language[_TERRITORY][.codeset][@modifier], the form of locale values in POSIX environments.
struct LocaleValue {
    std::string language;
    std::string codeSet;
    std::string modifier;
};

LocaleValue parse(std::string_view value) {
    const auto between = [value](char mark, char stop) {
        const auto begin = value.find(mark);
        if (begin == std::string_view::npos) return std::string();
        return std::string(value.substr(begin + 1, value.find(stop, begin) - begin - 1));
    };
    // Some terminals set a code set without a language.
    if (ucnv_compareNames(std::string(value).c_str(), "UTF-8") == 0) return {"", std::string(value), ""};
    return {std::string(value.substr(0, value.find_first_of(".@"))), between('.', '@'), between('@', '.')};
}

std::string firstSet(std::initializer_list<const char*> variables) {
    for (const char* variable : variables) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

/// Whether a locale name may be longer than ICU's buffers.
bool isLong(const std::string& name) { return name.size() >= ULOC_FULLNAME_CAPACITY; }

/// A value that names a code set and no language leaves the language to LANG.
icu::Locale localeOf(LocaleValue value) {
    if (value.language.empty() && !value.codeSet.empty()) value = parse(firstSet({"LANG"}));
    std::string name = value.language;
    if (name == "C" || name == "POSIX" || (name.empty() && value.modifier.empty())) name = "en_US_POSIX";
    // ICU writes a POSIX modifier as a variant, after an empty territory if there is no other.
    if (!value.modifier.empty()) name += (name.find('_') == std::string::npos ? "__" : "_") + value.modifier;

    std::string canonical(name.size() + ULOC_FULLNAME_CAPACITY, '\0');
    UErrorCode status = U_ZERO_ERROR;
    const auto size = static_cast<int32_t>(canonical.size());
    const int32_t length = uloc_canonicalize(name.c_str(), canonical.data(), size, &status);
    if (U_FAILURE(status)) return isLong(name) ? localeNamed(name) : icu::Locale("");
    canonical.resize(static_cast<std::size_t>(length));
    return localeNamed(canonical);
}

/// The converter is null if ICU does not know the name.
CodePage openCodePage(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    return {name, icu::LocalUConverterPointer(ucnv_open(name.c_str(), &status))};
}

CodePage codePageOf(const LocaleValue& value) {
    if (!value.codeSet.empty()) {
        CodePage named = openCodePage(value.codeSet);
        if (named.converter.isValid()) return named;
    }
    return openCodePage(fallbackCodePage);
}

}  // namespace

std::string environmentLocale() { return firstSet({"LC_ALL", "LC_CTYPE", "LANG"}); }

void adoptEnvironmentLocale() { adoptLocale(environmentLocale()); }

void adoptLocale(const std::string& value) {
    // Whatever ICU_DATA and ICU_TIMEZONE_FILES_DIR say, the data are those that the program is linked with.
    UErrorCode status = U_ZERO_ERROR;
    u_setDataDirectory("");
    u_setTimeZoneFilesDirectory("", &status);
    udata_setFileAccess(UDATA_NO_FILES, &status);

    const LocaleValue pieces = parse(value);
    processCodePage = codePageOf(pieces);
    status = U_ZERO_ERROR;
    icu::Locale::setDefault(localeOf(pieces), status);
}

icu::Locale localeNamed(const std::string& name) {
    icu::Locale locale(name.c_str());
    if (!locale.isBogus() || !isLong(name)) return locale;
    std::array<char, ULOC_LANG_CAPACITY> language{};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getLanguage(name.c_str(), language.data(), language.size() - 1, &status);
    return U_SUCCESS(status) ? icu::Locale(language.data()) : locale;
}

const char* codePageName() { return processCodePage.name.c_str(); }

icu::UnicodeString fromCodePage(const char* bytes) { return {bytes, codePageName()}; }

std::ostream& operator<<(std::ostream& out, InCodePage piece) {
    // A stateful code page would begin even an empty piece with its header.
    if (piece.text.empty()) return out;
    UConverter* const converter = processCodePage.converter.getAlias();
    const char16_t* source = piece.text.data();
    const char16_t* const sourceEnd = source + piece.text.size();
    std::array<char, 200> chunk;
    UErrorCode status;
    do {
        status = U_ZERO_ERROR;
        char* target = chunk.data();
        ucnv_fromUnicode(converter, &target, chunk.data() + chunk.size() - 1, &source, sourceEnd, nullptr, false,
                         &status);
        // A chunk goes out as a C string: in a code page such as UTF-16 it ends at its first zero byte.
        *target = '\0';
        out << chunk.data();
    } while (status == U_BUFFER_OVERFLOW_ERROR);
    ucnv_reset(converter);
    return out;
}

}  // namespace zev
