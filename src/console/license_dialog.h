#pragma once

#include <unicode/locid.h>

#include <fstream>

#include "console/terminal_geometry.h"

namespace zev {

struct RunContext;

/// What one dialogue works on.
struct LicenseDialog {
    /// `runContext` outlives the dialogue.
    explicit LicenseDialog(RunContext& runContext, ScreenSize screen = {}, std::ofstream log = {});
    LicenseDialog(const LicenseDialog&) = delete;
    LicenseDialog& operator=(const LicenseDialog&) = delete;

    RunContext& context;
    bool alternativeLanguageAvailable;  ///< the chosen language is not English, so English is the alternative
    icu::Locale chosenLocale;
    icu::Locale englishLocale;
    const icu::Locale* currentLocale;  ///< one of the two above
    const ScreenSize size;
    std::ofstream commandLog;  ///< open if answers are logged
};

/// Switches between the chosen language and English; false, and nothing changes, if there is no alternative. If the
/// licence of the other language is missing, the result is true all the same and the context keeps its language.
bool toggleLanguage(LicenseDialog& dialog);

}  // namespace zev
