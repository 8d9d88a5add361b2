#pragma once

#include <unicode/locid.h>

#include <string>

#include "app/run_context.h"
#include "lang/resource.h"

namespace zev {

/// The context of a run, in the language of ICU's default locale if the set supports it, otherwise in English. Whether
/// licence files exist does not matter here. `resource` is never null.
[[nodiscard]] RunContext createRunContext(std::string licensePath, std::string statusPath, int languageSet);

/// Makes `newLocale` the display locale, with the catalogue of its language. False, and nothing changes, if the set
/// does not support the language or its licence files are missing.
[[nodiscard]] bool setLocale(RunContext& context, const icu::Locale& newLocale);

}  // namespace zev
