#pragma once

#include <unicode/unistr.h>

namespace zev {

struct LicenseDialog;
struct RunContext;

/// The continue prompt in the current language, with the numbered choices that this dialogue offers.
/// Switches the language and back, to name the other one in its own words.
[[nodiscard]] icu::UnicodeString buildContinuePrompt(LicenseDialog& dialog);

/// Shows the agreement and asks for the answer. Returns the exit status that stands for it, or for the failure to have
/// or to lay out a text.
[[nodiscard]] int runLicenseDialog(RunContext& context);

}  // namespace zev
