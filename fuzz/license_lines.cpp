// Compares the loaded text of an agreement with what ICU decodes in one piece, and its lines with those of the plain
// algorithm, in every language and at every width. Input: a byte for the language (its highest bit for English rules),
// a byte for the width, then the file.

#include <string>
#include <vector>

#include "files/license_text_set.h"
#include "lang/environment_locale.h"
#include "lang/locale_choice.h"
#include "plain_breaking.h"
#include "support.h"
#include "support/session.h"

namespace zev::fuzz {
namespace {

/// A licence directory in which all agreements are the same file.
struct Licenses {
    Licenses() {
        for (const LanguageEntry& language : languages) {
            sandbox.link(std::string("licenses/LA_") + language.code, agreement.path());
            sandbox.remove(std::string("licenses/LI_") + language.code);
        }
    }
    const std::vector<LanguageEntry> languages = test::languages();
    const test::Sandbox sandbox;
    const MemoryFile agreement;
};

void checkLines(Input input) {
    static const Licenses licenses;
    const unsigned choice = input.byte();
    const int32_t width = 1 + input.byte();
    licenses.agreement.write(input.rest());

    setenv("LC_ALL", licenses.languages[(choice & 0x7F) % licenses.languages.size()].code, 1);
    adoptEnvironmentLocale();
    RunContext context = createRunContext(licenses.sandbox.path("licenses"), "", 4);
    icu::UnicodeString text;
    require(readLicenseText(context, text), "the agreement can be loaded");
    require(text == icu::UnicodeString(decoded(input.rest()).getTerminatedBuffer()), "loaded as decoded in one piece");

    LicenseDialog dialog(context);
    if (choice > 0x7F) dialog.currentLocale = &dialog.englishLocale;
    const auto lines = breakText(dialog, text, width);
    const TextLines expected = breakPlainly(dialog, text, width);
    require(lines ? *lines == expected : expected.size() == 0, "broken as by the plain algorithm");
}

}  // namespace
}  // namespace zev::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    zev::fuzz::checkLines({data, size});
    return 0;
}
