#pragma once

namespace zev {

struct LicenseDialog;

/// Hands the licence text of the current language, and the other parties' terms if there are any, to `lp` or else to
/// `lpr`, as a file in the process's code page. True if one of them took it: the file then stays where it is.
[[nodiscard]] bool printLicense(const LicenseDialog& dialog);

}  // namespace zev
