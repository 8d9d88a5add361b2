#include "console/license_dialog.h"

#include <string_view>
#include <utility>

#include "app/run_context.h"
#include "lang/locale_choice.h"

namespace zev {

LicenseDialog::LicenseDialog(RunContext& runContext, ScreenSize screen, std::ofstream log)
    : context(runContext),
      alternativeLanguageAvailable(runContext.locale.getLanguage() !=
                                   std::string_view(icu::Locale::getEnglish().getLanguage())),
      chosenLocale(runContext.locale),
      englishLocale(icu::Locale::getEnglish()),
      currentLocale(&chosenLocale),
      size(screen),
      commandLog(std::move(log)) {}

bool toggleLanguage(LicenseDialog& dialog) {
    if (!dialog.alternativeLanguageAvailable) return false;
    const bool isChosen = dialog.currentLocale == &dialog.chosenLocale;
    dialog.currentLocale = isChosen ? &dialog.englishLocale : &dialog.chosenLocale;
    static_cast<void>(setLocale(dialog.context, *dialog.currentLocale));
    return true;
}

}  // namespace zev
