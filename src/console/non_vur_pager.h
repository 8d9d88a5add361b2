#pragma once

namespace zev {

struct LicenseDialog;

/// Asked under every page of the other parties' terms, deliberately in English in every language.
inline constexpr const char* morePrompt = "-- More, \"q\" to quit --";

/// Pages through the other parties' terms, and on through blank pages, until an answer begins with "q" or "Q". False,
/// and nothing is shown, if the terms cannot be read.
[[nodiscard]] bool showNonVurTerms(LicenseDialog& dialog);

}  // namespace zev
