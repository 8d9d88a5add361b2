#pragma once

#include <unicode/locid.h>

namespace zev {

struct RunContext;

/// Gives a context under construction its locale and catalogue: those of ICU's default locale where the set supports
/// its language, else English. Whether licence files exist does not matter here.
void chooseInitialLanguage(RunContext& context);

/// Makes `newLocale` the display locale, with the catalogue of its language. False, and nothing changes, when the set
/// does not support the language or its licence files are missing.
[[nodiscard]] bool setLocale(RunContext& context, const icu::Locale& newLocale);

/// Writes the locale's description to the trace.
void dumpLocale(const icu::Locale& locale);

}  // namespace zev
