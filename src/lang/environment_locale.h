#pragma once

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <iosfwd>
#include <string>
#include <string_view>

/// The locale and the code page of the process. ICU's builds for Linux read other variables and take UTF-8 for granted,
/// so both are settled here, as POSIX has it: by the first of LC_ALL, LC_CTYPE and LANG that is set and not empty.
namespace zev {

/// The value of the first of those variables, empty if none is set.
[[nodiscard]] std::string environmentLocale();

/// Makes the locale of a value, such as "pt_BR.UTF-8", ICU's default, and its code set the code page of the process. A
/// value that names a code set alone leaves the language to LANG. The first call comes before any other use of ICU,
/// which from here on has no data but its own.
void adoptLocale(const std::string& value);

/// Does the same with the value of the environment.
void adoptEnvironmentLocale();

/// The locale of a name. Some releases of ICU refuse a name that is longer than their buffers: the result then has at
/// least its language.
[[nodiscard]] icu::Locale localeNamed(const std::string& name);

/// The ICU converter name of the process's code page: the code set of the locale, or "US-ASCII" if the locale names
/// none or one that ICU does not know.
[[nodiscard]] const char* codePageName();

/// The text that NUL-terminated bytes in the process's code page stand for.
[[nodiscard]] icu::UnicodeString fromCodePage(const char* bytes);

/// A text on its way to a stream, written in the process's code page. What the code page lacks becomes its substitution
/// character.
struct InCodePage {
    std::u16string_view text;
};
std::ostream& operator<<(std::ostream& out, InCodePage piece);

}  // namespace zev
