#include <gmock/gmock.h>

#include <regex>

#include "support/session.h"

namespace zev::test {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

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
    std::vector<std::tuple<Arguments, int, std::string>> rows{
        {{"-l", "a"}, 17, "Options -l and -s are mandatory"},
        {{"-l", "", "-s", "b"}, 17, "Options -l and -s are mandatory"},
        {{"-t", "05"}, 18, "Invalid argument for -t option"},
        {{"-langset", "4"}, 18, "Invalid -langset argument"},
        {{"-l", "a", "-s", "b", "-T"}, 18, "Unknown option : -T"},
        {{"-l", "-s", "b"}, 18, "Unknown option : b"},
    };
    for (const std::string option : {"-l", "-s", "-m", "-t", "-setlang", "-cmdlog", "-dimout", "-langset"}) {
        const bool takesPath = option == "-l" || option == "-s" || option == "-m";
        rows.push_back({{option}, 18, "Option " + option + " requires " + (takesPath ? "a path" : "an") + " argument"});
    }
    for (const auto& [arguments, exitCode, message] : rows) {
        SCOPED_TRACE(message + testing::PrintToString(arguments));
        const Finished finished = run(arguments, {{"ZEV_DEBUG", ""}});
        EXPECT_EQ(finished.exitCode, exitCode);
        EXPECT_EQ(finished.out, "Exited with: " + std::to_string(exitCode) + "\n");
        EXPECT_EQ(finished.err, "DEBUG: " + message + "\n" + usage);
    }
    EXPECT_EQ(run({}).err, "") << "without a trace";
}

TEST(CommandLine, goesOnAfterTheVersionAndTakesTheLaterOfTwoValues) {
    const Finished finished = run({"-version", "-debug", "-l", "a", "-s", "/dev/null/x", "-l", "b", "-langset", "3x"});
    EXPECT_EQ(finished.out, "v1.1-0\nExited with: 20\n");
    EXPECT_THAT(finished.err, StartsWith("DEBUG: ZEV version v1.1-0 started\nDEBUG: Tool invoked as: zev "
                                         "-version -debug -l a -s /dev/null/x -l b -langset 3x\n"));
    EXPECT_THAT(finished.err, EndsWith("DEBUG: Calling mkdir(/dev/null/x, 488);\n"
                                       "DEBUG: Function mkdir returned -1\nDEBUG: errno = 20\n"));
}

TEST(DebugTrace, goesToTheLastFileNamedOrElseToStandardError) {
    const Sandbox sandbox;
    const std::string first = sandbox.path("first"), last = sandbox.path("last");
    const std::tuple<Environment, Arguments, bool, const char*> rows[]{
        {{{"ZEV_DEBUG", ""}}, {}, false, "old"},
        {{{"ZEV_DEBUG", "/no/such/trace"}}, {}, false, "old"},
        {{{"ZEV_DEBUG", last}}, {"-debug", "-debug"}, true, "old"},  // an option is no file name
        {{{"ZEV_DEBUG", first}}, {"-debug", last}, true, ""},
        {{}, {"-debug", first, "-debugBreakText", last}, true, ""},
        {{}, {"-debug", last, "-debug", ""}, false, "old"},
    };
    for (const auto& [environment, options, toLast, inFirst] : rows) {
        SCOPED_TRACE(testing::PrintToString(options));
        sandbox.write("first", "old");
        sandbox.write("last", "old");
        const Finished finished = run(joined(sandbox.arguments({"-t", "5"}), options), environment);
        EXPECT_THAT(toLast ? sandbox.read("last") : finished.err, StartsWith("DEBUG: ZEV version v1.1-0 started\n"));
        EXPECT_EQ(finished.err.empty(), toLast);
        EXPECT_EQ(sandbox.read("first"), inFirst);
    }
    EXPECT_THAT(run(sandbox.arguments({"-t", "5", "-debug", "/dev/full"})).err,
                StartsWith("DEBUG: Tool invoked as: zev -l"))
        << "from the line after the one that did not fit";
}

TEST(DebugTrace, hasASwitchOfItsOwnForLineBreaking) {
    const Sandbox sandbox;
    sandbox.write("licenses/LA_en", utf16(u"a\nb"));
    sandbox.write("licenses/LI_en", "");
    const std::string rule = "DEBUG: -------------------\n";
    EXPECT_THAT(
        run(sandbox.arguments({"-debugBreakText"}), {}, "1\n").err,
        StartsWith(rule + "DEBUG: start   : 0\nDEBUG: end     : 0\nDEBUG: nextPos : 2\n" +  //
                   rule + "DEBUG: start   : 0\nDEBUG: end     : 2\nDEBUG: nextPos : 3\nDEBUG: Got string 1: 'a'\n" +
                   rule + "DEBUG: start   : 2\nDEBUG: end     : 2\nDEBUG: nextPos : 3\n" +  //
                   rule + "DEBUG: start   : 2\nDEBUG: end     : 3\nDEBUG: nextPos : -1\nDEBUG: Got string 3: 'b'\n"));
}

TEST(DebugTrace, tellsTheWholeRun) {
    const Sandbox sandbox;
    sandbox.write("licenses/notices", utf16(u"n"));
    run(sandbox.arguments({"-debug", sandbox.path("trace"), "-m", sandbox.path("m")}),
        {{"LC_ALL", "xx_XX.UTF-8"}, {"PATH", "/no"}}, "4\n3\n2\n\n1\n");
    std::string trace = sandbox.read("trace");
    for (const auto& [pattern, to] : {std::pair(sandbox.path(), "@"),
                                      {"DEBUG: (Calling mkdir.*\n)?", ""},
                                      {"zevdoc_[0-9]+", "zevdoc_PID"},
                                      {"(creating output|Reading).*/(license/(?!Czech)|LA_(?!cs)).*\n", ""}}) {
        trace = std::regex_replace(trace, std::regex(pattern), to);
    }
    const std::string loaded = "Number of characters in @/licenses/LA_en is 13\nNumber of characters in "
                               "@/licenses/LI_en is 15\nTotal license text size is 28\n";
    // The information file is announced under the path of the agreement.
    EXPECT_EQ(trace, R"(ZEV version v1.1-0 started
Tool invoked as: zev -l @/licenses -s @/status -debug @/trace -m @/m
Defaulting to English locale/resource
Using resource for language en
Locale information:
  isBogus        : no
  language       : en
  country        : 
  variant        : 
  name           : en
  base name      : en
  ISO 3 language : eng
  ISO 3 country  : 
No status.dat found at @/status/license/status.dat
No status.dat found at @/m/status.dat
height=24, width=80
)" + loaded + R"([INPUT] ==> 4
Unable to open file @/licenses/non_vur_license
Error getting non-VUR license text
[INPUT] ==> 3
Doing print LA
)" + loaded + R"(creating temp file /tmp/zevdoc_PID_en.text in codepage UTF-8
Wrote 28 characters to temp file
Got lp return code : 32512
Got lpr return code : 32512
Error printing LA
[INPUT] ==> 2
[INPUT] ==> 
Going back to the license
[INPUT] ==> 1
License Accepted
Master status.dat written successfully to @/m/status.dat
Writing license files...
creating output file @/status/license/Czech.txt in codepage UTF-8
Reading LA file @/licenses/LA_cs in codepage UTF-16
Reading LI file @/licenses/LA_cs in codepage UTF-16
input file @/licenses/notices is in codepage UTF-16
output file @/status/license/notices.txt is in codepage UTF-8
All status and license files written successfully
)");
}

TEST(RunDriver, recordsNothingWhenDeclinedAndRemembersAnAcceptance) {
    const Sandbox sandbox;
    const Finished declined = run(sandbox.arguments({"-show_exit_code", "-debug"}), {}, "2\n2\n");
    EXPECT_THAT(declined.out, EndsWith("\n[INPUT] ==> 2\nExited with: 3\n"));
    EXPECT_THAT(declined.err, EndsWith("\nDEBUG: License Rejected\n"));
    EXPECT_FALSE(sandbox.has("status/license"));
    EXPECT_FALSE(sandbox.has("status/status.dat")) << "the probe leaves nothing behind";
    sandbox.write("status/status.dat", "not ours");
    EXPECT_EQ(run(sandbox.arguments({"-m", ""}), {}, "1\n").exitCode, 9);
    EXPECT_EQ(sandbox.read("status/status.dat"), "not ours");

    sandbox.write("m/status.dat", "Status=9\n");
    EXPECT_EQ(run({"-l", sandbox.path("licenses"), "-s", sandbox.path("other"), "-m", sandbox.path("m")}).exitCode, 9);

    sandbox.remove("status/license/German.txt");
    sandbox.remove("licenses/LI_tr");
    EXPECT_EQ(run(sandbox.arguments({"-show_exit_code"})).out, "Exited with: 9\n") << "an incomplete product";
    EXPECT_EQ(sandbox.read("status/license/German.txt"), "de agreement\nde information\n");
    EXPECT_EQ(run(sandbox.arguments()).out, "");
}

TEST(RunDriver, namesEveryMissingFileWhenTracing) {
    const Sandbox sandbox;
    for (const char* name : {"LI_en", "LA_ru", "LI_ru"}) sandbox.remove(std::string("licenses/") + name);
    const std::string summary = "Error: License agreement file missing. Aborted.\nExited with: 11\n";
    const std::string missing = "Error: Missing license file " + sandbox.path("licenses/");
    EXPECT_EQ(run(sandbox.arguments()).out, summary);
    EXPECT_EQ(run(sandbox.arguments({"-debug"})).out,
              missing + "LI_en\n" + missing + "LA_ru\n" + missing + "LI_ru\n" + summary);
    EXPECT_EQ(run(sandbox.arguments({"-debug", "-langset", "3"})).out, missing + "LI_en\n" + summary);
}

TEST(RunDriver, failsWithTheCodeOfTheStageThatFailed) {
    using namespace std::string_literals;
    const std::tuple<int, Arguments, const char*, std::string, std::string> rows[]{
        // A file that is there, and its bytes.
        {21, {}, "status", "", ""},
        {23, {}, "licenses/LA_en", "\0\0"s, " with a vector of size 0\nDEBUG: Failed breakText for license text"},
        {15, {"-t", "5"}, "status/license", "", "Problem writing status files, errno = 20"},
    };
    for (const auto& [exitCode, more, file, bytes, cause] : rows) {
        const Sandbox sandbox;
        sandbox.write(file, bytes);
        const Finished finished = run(joined(sandbox.arguments({"-debug"}), more), {}, "1\n");
        EXPECT_EQ(finished.exitCode, exitCode);
        EXPECT_EQ(finished.out, "Exited with: " + std::to_string(exitCode) + "\n");
        EXPECT_THAT(finished.err, HasSubstr(cause));
    }
}

TEST(RunDriver, honoursThePreferredLanguageWhereItsFilesExist) {
    const std::pair<const char*, std::string> rows[]{
        {"fr_CA", "Using locale/resource for language fr\nDEBUG: Locale information:\n"},
        {"fr_CA", "  ISO 3 country  : CAN\n"},
        {"zh_TW", "Using locale/resource for language zh\n"},
        {"xx", "Could not setLocale for language xx\n"},
        {"de", "Could not set locale, license not available for language de\n"},
        {"english", "Could not set locale, license not available for language english\n"},
    };
    const Sandbox sandbox;
    sandbox.remove("licenses/LI_de");
    for (const auto& [preferred, line] : rows) {
        const Finished finished = run(sandbox.arguments({"-debug", "-t", "5", "-setlang", preferred}));
        EXPECT_THAT(finished.err, HasSubstr("DEBUG: " + line));
    }
}

TEST(RunDriver, speaksTheLanguageOfALocaleWithAVeryLongName) {
    const Sandbox sandbox;
    const std::string name = "de_" + std::string(200, 'x');
    EXPECT_EQ(run(sandbox.arguments({"-setlang", name}), {}, "2\n2\n").exitCode, 3);
    EXPECT_THAT(run(sandbox.arguments(), {{"LC_ALL", name}}, "1\n").out, testing::StartsWith("de agreement\n"));
}

}  // namespace zev::test
