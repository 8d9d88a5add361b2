#include "console/terminal_geometry.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "app/debug_trace.h"
#include "app/run_options.h"

namespace zev {

namespace {

void takePositive(int32_t& value, int candidate) {
    if (candidate > 0) value = candidate;
}

void takeFromEnvironment(int32_t& value, const char* variable) {
    if (const char* text = std::getenv(variable)) takePositive(value, std::atoi(text));
}

}  // namespace

ScreenSize sizeOfTerminal(int descriptor) {
    ScreenSize size;
    winsize window{};
    if (ioctl(descriptor, TIOCGWINSZ, &window) == 0) {
        takePositive(size.height, window.ws_row);
        takePositive(size.width, window.ws_col);
    }
    return size;
}

ScreenSize measureTerminal() {
    ScreenSize size = sizeOfTerminal(STDERR_FILENO);
    takeFromEnvironment(size.width, "COLUMNS");
    takeFromEnvironment(size.height, "LINES");
    trace("height=", size.height, ", width=", size.width);

    if (!runOptions.dimensionsOutPath.empty()) {
        std::ofstream(runOptions.dimensionsOutPath) << size.height << ' ' << size.width << '\n';
    }
    return size;
}

uint32_t textLinesPerPage(int32_t height, std::size_t promptLines) {
    const int64_t lines = int64_t{height} - static_cast<int64_t>(promptLines) - reservedLines;
    return lines < 0 ? unlimitedPage : static_cast<uint32_t>(lines);
}

}  // namespace zev
