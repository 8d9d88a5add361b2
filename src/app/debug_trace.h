#pragma once

#include <iostream>
#include <string>

namespace zev {

/// Where the next trace line goes: the trace file while it is open and good, otherwise standard error.
[[nodiscard]] std::ostream& debugStream();

/// Sends the trace to `fileName`, which is emptied, or with an empty name to standard error. A file that cannot be
/// opened is not reported; the trace then goes to standard error.
void openDebugFile(const std::string& fileName);

/// Deliberately functions, and the separator of paths beside the trace: their callers expect both here.
[[nodiscard]] std::string debugPrefix();
[[nodiscard]] std::string pathSeparator();

/// Whether `-debug` or ZEV_DEBUG has switched the trace on.
[[nodiscard]] bool isTracing();

/// Writes one line to the trace, whatever the switches say. Standard output is flushed first, so that on a terminal the
/// line stands where it belongs.
template <class... Pieces>
void writeTraceLine(const Pieces&... pieces) {
    std::cout.flush();
    std::ostream& out = debugStream();
    out << debugPrefix();
    (out << ... << pieces) << std::endl;
}

/// Writes one line to the trace when tracing is on; otherwise does nothing and formats nothing.
template <class... Pieces>
void trace(const Pieces&... pieces) {
    if (isTracing()) writeTraceLine(pieces...);
}

}  // namespace zev
