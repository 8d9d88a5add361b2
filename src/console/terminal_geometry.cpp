#include "console/terminal_geometry.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "app/debug_trace.h"
#include "app/run_options.h"

namespace zev {

int32_t screenWidth = 80;
int32_t screenHeight = 24;

namespace {

void takePositive(int32_t& value, int candidate) {
    if (candidate > 0) value = candidate;
}

void takeFromEnvironment(int32_t& value, const char* variable) {
    if (const char* text = std::getenv(variable)) takePositive(value, std::atoi(text));
}

}  // namespace

void measureTerminal() {
    winsize window{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &window) == 0) {
        takePositive(screenHeight, window.ws_row);
        takePositive(screenWidth, window.ws_col);
    }
    takeFromEnvironment(screenWidth, "COLUMNS");
    takeFromEnvironment(screenHeight, "LINES");
    trace("height=", screenHeight, ", width=", screenWidth);

    if (runOptions.dimensionsOutPath.empty()) return;
    std::ofstream(runOptions.dimensionsOutPath) << screenHeight << ' ' << screenWidth << '\n';
}

uint32_t textLinesPerPage(std::size_t promptLines) {
    const int64_t lines = int64_t{screenHeight} - static_cast<int64_t>(promptLines) - reservedLines;
    return lines < 0 ? unlimitedPage : static_cast<uint32_t>(lines);
}

}  // namespace zev
