#include "app/debug_trace.h"

#include <fstream>

#include "app/run_options.h"

namespace zev {

namespace {

std::ofstream traceFile;

}  // namespace

std::ostream& debugStream() {
    if (traceFile.is_open() && traceFile.good()) return traceFile;
    return std::cerr;
}

void openDebugFile(const std::string& fileName) {
    if (traceFile.is_open()) traceFile.close();
    traceFile.clear();
    if (fileName.empty()) return;
    traceFile.rdbuf()->pubsetbuf(nullptr, 0);
    traceFile.open(fileName, std::ios::out | std::ios::trunc);
}

std::string debugPrefix() { return "DEBUG: "; }

std::string pathSeparator() { return "/"; }

bool isTracing() { return runOptions.debugEnabled; }

}  // namespace zev
