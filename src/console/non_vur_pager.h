#pragma once

namespace zev {

struct LicenseDialog;

/// Pages through the other parties' terms, and on through blank pages, until an answer begins with "q" or "Q". False,
/// and nothing is shown, when the terms cannot be had.
[[nodiscard]] bool showNonVurTerms(LicenseDialog& dialog);

}  // namespace zev
