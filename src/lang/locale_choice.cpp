#include "lang/locale_choice.h"

#include <memory>
#include <utility>

#include "app/debug_trace.h"
#include "files/license_text_set.h"
#include "files/paths.h"
#include "lang/language_table.h"
#include "lang/resource_factory.h"

namespace zev {

namespace {

/// The catalogue of a language of the active set; null if the set does not support the language.
std::unique_ptr<Resource> catalogueFor(const RunContext& context, const char* language) {
    const char* code = matchLanguage(context, language);
    return code != nullptr ? createResource(code, false) : nullptr;
}

/// Writes the locale's description to the trace.
void dumpLocale(const icu::Locale& locale) {
    if (!isTracing()) return;
    trace("Locale information:");
    trace("  isBogus        : ", locale.isBogus() ? "yes" : "no");
    if (locale.isBogus()) return;
    trace("  language       : ", locale.getLanguage());
    trace("  country        : ", locale.getCountry());
    trace("  variant        : ", locale.getVariant());
    trace("  name           : ", locale.getName());
    trace("  base name      : ", locale.getBaseName());
    trace("  ISO 3 language : ", locale.getISO3Language());
    trace("  ISO 3 country  : ", locale.getISO3Country());
}

void chooseInitialLanguage(RunContext& context) {
    context.locale = icu::Locale();
    context.resource = catalogueFor(context, context.locale.getLanguage());
    if (!context.resource) {
        trace("Defaulting to English locale/resource");
        context.locale = icu::Locale::getEnglish();
        context.resource = createResource(context.locale.getLanguage(), true);
    }
    trace("Using resource for language ", context.resource->getLanguageCode());
    dumpLocale(context.locale);
}

}  // namespace

RunContext createRunContext(std::string licensePath, std::string statusPath, int languageSet) {
    RunContext context;
    context.licenseDir = std::move(licensePath);
    context.statusDir = std::move(statusPath);
    context.licenseCopyDir = joinPath(context.statusDir, "license");
    context.languageSet = languageSet;
    chooseInitialLanguage(context);
    return context;
}

bool setLocale(RunContext& context, const icu::Locale& newLocale) {
    const char* language = newLocale.getLanguage();
    std::unique_ptr<Resource> candidate = catalogueFor(context, language);
    if (!candidate) {
        trace("Could not setLocale for language ", language);
        return false;
    }
    if (!checkLanguageFiles(context, language)) {
        trace("Could not set locale, license not available for language ", language);
        return false;
    }
    context.locale = newLocale;
    context.resource = std::move(candidate);
    trace("Using locale/resource for language ", language);
    dumpLocale(context.locale);
    return true;
}

}  // namespace zev
