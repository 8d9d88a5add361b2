#include <gmock/gmock.h>

#include "support/process.h"

namespace zev::test {

constexpr const char* usage = R"(DEBUG: zev version v1.1-0
DEBUG: Usage: zev {<option>}
DEBUG: Required options:
DEBUG:   -l <la_path>        = Specify location of input license files
DEBUG:   -s <status_path>    = Specify location of target status file
DEBUG: Optional options:
DEBUG:   -m <master_path>    = Specify master path for group install
DEBUG:   -show_exit_code     = Show exit code on program termination
DEBUG:   -t <status>         = 
DEBUG:   -setlang <language> = Specify a preferred language
DEBUG:   -version            = Show version information
DEBUG:   -debug {<filename>} = Output debug messages to stderr or specified filename
DEBUG:   -langset 3          = Specify alt set of supported languages (DFLT=4)
)";

TEST(CommandLine, refusesABadOneWithItsCodeAndTraceLine) {
    const std::tuple<Arguments, int, std::string> rows[]{
        {{}, 17, "Options -l and -s are mandatory"},
        {{"-l", "a"}, 17, "Options -l and -s are mandatory"},
        {{"-l", "", "-s", "b"}, 17, "Options -l and -s are mandatory"},
        {{"-l"}, 18, "Option -l requires a path argument"},
        {{"-s"}, 18, "Option -s requires a path argument"},
        {{"-m"}, 18, "Option -m requires a path argument"},
        {{"-t"}, 18, "Option -t requires an argument"},
        {{"-setlang"}, 18, "Option -setlang requires an argument"},
        {{"-cmdlog"}, 18, "Option -cmdlog requires an argument"},
        {{"-dimout"}, 18, "Option -dimout requires an argument"},
        {{"-langset"}, 18, "Option -langset requires an argument"},
        {{"-t", "05"}, 18, "Invalid argument for -t option"},
        {{"-langset", "4"}, 18, "Invalid -langset argument"},
        {{"-langset", "33"}, 18, "Invalid -langset argument"},
        {{"-l", "a", "-s", "b", "-T"}, 18, "Unknown option : -T"},
        {{"-l", "-s", "b"}, 18, "Unknown option : b"},
        {{"-x", "-version"}, 18, "Unknown option : -x"},
    };
    for (const auto& [arguments, exitCode, message] : rows) {
        SCOPED_TRACE(message + testing::PrintToString(arguments));
        const Finished silent = run(arguments);
        EXPECT_EQ(silent.exitCode, exitCode);
        EXPECT_EQ(silent.out, "Exited with: " + std::to_string(exitCode) + "\n");
        EXPECT_EQ(silent.err, "");
        EXPECT_EQ(run(arguments, {{"ZEV_DEBUG", ""}}).err, "DEBUG: " + message + "\n" + usage);
    }
}

TEST(CommandLine, goesOnAfterTheVersionAndTakesTheLaterOfTwoValues) {
    const Finished finished = run({"-version", "-debug", "-l", "a", "-s", "/dev/null/x", "-l", "b", "-langset", "3x"});
    EXPECT_EQ(finished.out, "v1.1-0\nExited with: 20\n");
    EXPECT_THAT(finished.err, testing::StartsWith("DEBUG: ZEV version v1.1-0 started\nDEBUG: Tool invoked as: zev "
                                                  "-version -debug -l a -s /dev/null/x -l b -langset 3x\n"));
    EXPECT_THAT(finished.err, testing::EndsWith("DEBUG: Calling mkdir(/dev/null/x, 488);\n"
                                                "DEBUG: Function mkdir returned -1\nDEBUG: errno = 20\n"));
}

}  // namespace zev::test
