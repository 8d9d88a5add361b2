#include <gtest/gtest.h>

#include "support/process.h"

namespace zev::test {
namespace {

TEST(TerminalGeometry, prefersTheEnvironmentToTheTerminalAndThatToTheDefaults) {
    struct Row {
        const char* name;
        unsigned short rows, columns;  // without rows no terminal
        Environment environment;
        const char* dimensions;
    };
    const Row rows[]{
        {"terminal", 50, 120, {}, "50 120\n"},
        {"columns win", 50, 100, {{"COLUMNS", "132"}}, "50 132\n"},
        {"lines win", 50, 100, {{"LINES", "7x"}}, "7 100\n"},
        {"unusable values", 50, 100, {{"COLUMNS", "-5"}, {"LINES", "abc"}}, "50 100\n"},
        {"half a terminal", 40, 0, {}, "40 80\n"},
        {"no terminal", 0, 0, {{"COLUMNS", "0"}, {"LINES", ""}}, "24 80\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Sandbox sandbox;
        const Arguments arguments = sandbox.arguments({"-dimout", sandbox.path("dimensions")});
        if (row.rows == 0) {
            EXPECT_EQ(run(arguments, row.environment, "1\n").exitCode, 9);
        } else {
            Terminal terminal(row.rows, row.columns, arguments, row.environment);
            terminal.type("1");
            EXPECT_EQ(terminal.finish(), 9);
        }
        EXPECT_EQ(sandbox.read("dimensions"), row.dimensions);
    }
}

}  // namespace
}  // namespace zev::test
