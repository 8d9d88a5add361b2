#include <gtest/gtest.h>

#include "support/process.h"

namespace zev::test {

TEST(TerminalGeometry, prefersTheEnvironmentToTheTerminalAndThatToTheDefaults) {
    const std::tuple<unsigned short, unsigned short, Environment, const char*> rows[]{
        {50, 120, {}, "50 120\n"},
        {50, 100, {{"COLUMNS", "132"}}, "50 132\n"},
        {50, 100, {{"LINES", "7x"}}, "7 100\n"},
        {50, 100, {{"COLUMNS", "-5"}, {"LINES", "abc"}}, "50 100\n"},
        {40, 0, {}, "40 80\n"},
    };
    for (const auto& [height, width, environment, dimensions] : rows) {
        const Sandbox sandbox;
        Terminal terminal(height, width, sandbox.arguments({"-dimout", sandbox.path("size")}), environment);
        terminal.type("1");
        EXPECT_EQ(terminal.finish(), 9);
        EXPECT_EQ(sandbox.read("size"), dimensions);
    }
    const Sandbox sandbox;
    run(sandbox.arguments({"-dimout", sandbox.path("size")}), {{"COLUMNS", "0"}, {"LINES", ""}}, "1\n");
    EXPECT_EQ(sandbox.read("size"), "24 80\n");
}

}  // namespace zev::test
