#include "console/terminal_geometry.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <tuple>

#include "app/run_options.h"
#include "support/sandbox.h"

namespace zev::test {

TEST(TerminalGeometry, prefersTheEnvironmentToTheTerminalOnStandardErrorAndThatToTheDefaults) {
    const std::tuple<winsize, const char*, const char*, const char*> rows[]{
        {{50, 120, 0, 0}, "", "", "50 120\n"},  {{50, 100, 0, 0}, "132", "", "50 132\n"},
        {{50, 100, 0, 0}, "", "7x", "7 100\n"}, {{50, 100, 0, 0}, "-5", "abc", "50 100\n"},
        {{40, 0, 0, 0}, "0", "", "40 80\n"},    {{0, 0, 0, 0}, "", "", "24 80\n"},
    };
    const Sandbox sandbox;
    runOptions.dimensionsOutPath = sandbox.path("size");
    for (const auto& [size, columns, lines, dimensions] : rows) {
        int terminal, process;
        ASSERT_EQ(openpty(&terminal, &process, nullptr, nullptr, &size), 0);
        dup2(process, STDERR_FILENO);
        setenv("COLUMNS", columns, 1);
        setenv("LINES", lines, 1);
        screenWidth = 80;
        screenHeight = 24;
        measureTerminal();
        EXPECT_EQ(sandbox.read("size"), dimensions);
    }
}

}  // namespace zev::test
