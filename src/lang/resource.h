#pragma once

#include <unicode/unistr.h>

namespace zev {

/// The message catalogue of one language. The order of the operations is the catalogue's slot order; it is fixed.
///
/// Every message comes back as it is stored, its non-ASCII characters still written as backslash-u escapes: callers
/// apply UnicodeString::unescape before they measure or show it.
class Resource {
public:
    /// The language code, a suffix of the licence file names; the string lives as long as the process.
    [[nodiscard]] virtual const char* getLanguageCode() const = 0;

    [[nodiscard]] virtual icu::UnicodeString NUMERIC1_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString TITLE_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString INSTRUCTIONS_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString ACCEPT_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString DECLINE_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString PRINT_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString YES_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString NO_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString DECLINED_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CONFIRMDECLINE_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CLILANGMENU_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CLILANGMSG_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CLITITLE_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CLIINTROMSG_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CLICONTMSG_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CLICFMMSG_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString CLIACCMSG_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString NUMERIC2_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString NUMERIC3_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString PRINTERRMSG_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString LANGNAME_KEY() const = 0;
    [[nodiscard]] virtual icu::UnicodeString NONVURTERMS_KEY() const = 0;

    /// Declared last so that the 23 operations keep their places.
    virtual ~Resource() = default;
};

}  // namespace zev
