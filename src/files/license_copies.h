#pragma once

namespace zev {

struct RunContext;

/// The suffix of a copy, after the English name of a language or the name of a file.
inline constexpr const char* copySuffix = ".txt";

/// Copies the agreement and information of every language of the active set, the other parties' terms and the notices
/// into the licence copy directory, in the code page of the process. Stops at the first failure; nothing is undone.
[[nodiscard]] bool writeLicenseFiles(const RunContext& context);

/// Records the acceptance: the master status file, whose failure is only traced, the copies, and last the local status
/// file, so that a valid one always stands beside a complete set of copies. False if one of the latter two failed.
[[nodiscard]] bool writeStatusFiles(const RunContext& context);

}  // namespace zev
