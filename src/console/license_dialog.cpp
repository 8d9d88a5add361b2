#include "console/license_dialog.h"

#include <string_view>

#include "app/run_context.h"
#include "app/run_options.h"
#include "console/terminal_geometry.h"
#include "lang/locale_choice.h"

namespace zev {

LicenseDialog::LicenseDialog(RunContext& runContext)
    : context(runContext),
      alternativeLanguageAvailable(runContext.locale.getLanguage() !=
                                   std::string_view(icu::Locale::getEnglish().getLanguage())),
      chosenLocale(runContext.locale),
      englishLocale(icu::Locale::getEnglish()),
      currentLocale(&chosenLocale) {
    if (!runOptions.commandLogPath.empty()) commandLog.open(runOptions.commandLogPath);
    measureTerminal();
}

bool toggleLanguage(LicenseDialog& dialog) {
    if (!dialog.alternativeLanguageAvailable) return false;
    const bool isChosen = dialog.currentLocale == &dialog.chosenLocale;
    dialog.currentLocale = isChosen ? &dialog.englishLocale : &dialog.chosenLocale;
    static_cast<void>(setLocale(dialog.context, *dialog.currentLocale));
    return true;
}

}  // namespace zev
