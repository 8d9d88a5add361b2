#pragma once

#include <string>

namespace zev {

struct RunContext;

/// The status file of the licence copy directory, and that of the master directory of a group install.
[[nodiscard]] std::string localStatusPath(const RunContext& context);
[[nodiscard]] std::string masterStatusPath(const RunContext& context);

/// Writes a status file. True if its last byte has reached the file system; the directory must exist. Like
/// `checkStatusFile` it deliberately takes the context, which it does not need: its callers hand one to every step.
[[nodiscard]] bool writeStatusFile(const RunContext& context, const std::string& path);

/// Whether the file is a valid status file: its first line that is neither empty nor a comment, of at most 79 bytes
/// like every line before it, says that the agreement is accepted.
[[nodiscard]] bool checkStatusFile(const RunContext& context, const std::string& path);

/// Whether the local status file or, in a group install, the master status file is valid.
[[nodiscard]] bool checkAccepted(const RunContext& context);

/// Creates the status directory and proves that a status file can be created in it. On failure `exitCode` holds the
/// exit status of the run.
[[nodiscard]] bool prepareStatusDirectory(const RunContext& context, int& exitCode);

}  // namespace zev
