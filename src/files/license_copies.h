#pragma once

namespace zev {

struct RunContext;

/// What follows the name of a copy: that of a language in English, or of a file.
inline constexpr const char* copySuffix = ".txt";

/// Copies the agreement and information of every language of the active set, the other parties' terms and the notices
/// into the licence copy directory, in the code page of the process. Stops at the first failure; nothing is undone.
[[nodiscard]] bool writeLicenseFiles(const RunContext& context);

/// Records the acceptance: the master status file, whose failure is only traced, the copies, and last the local status
/// file, so that a valid one always stands beside a complete set of copies. False when one of the latter two failed.
[[nodiscard]] bool writeStatusFiles(const RunContext& context);

}  // namespace zev
