#pragma once

#include <string>

namespace zev {

/// Fills `runOptions` from the arguments. On failure `exitCode` holds the exit status and the trace the cause, and the
/// options met before the error keep their effect; on success `exitCode` is left alone.
[[nodiscard]] bool parseCommandLine(int& exitCode, int argc, char** argv);

/// Writes the usage to the trace.
void printUsage(const std::string& programName);

}  // namespace zev
