#include "console/terminal_geometry.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <limits>

#include "app/debug_trace.h"

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
    return static_cast<uint32_t>(screenHeight) - static_cast<uint32_t>(promptLines) - uint32_t{reservedLines};
}

bool isWithoutLimit(uint32_t pageLines) { return pageLines > uint32_t{std::numeric_limits<int32_t>::max()}; }

}  // namespace zev
