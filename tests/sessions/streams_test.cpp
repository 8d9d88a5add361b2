#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "support/session.h"

namespace zev::test {

using testing::HasSubstr;

/// Puts a pipe that holds answers in place of standard input.
template <char... answers>
void answerFromPipe() {
    int ends[2];
    for (const char answer : pipe(ends) == 0 ? std::string{answers...} : "") dprintf(ends[1], "%c\n", answer);
    dup2(ends[0], STDIN_FILENO);
}

TEST(Streams, traceEchoAndLogAnAnswerInThisOrderBeforeAnythingElseHappens) {
    const Sandbox sandbox;
    ASSERT_EQ(mkdir(sandbox.path("status").c_str(), 0700) + mkdir(sandbox.path("status/license").c_str(), 0700), 0);
    ASSERT_EQ(mkfifo(sandbox.path("status/license/Czech.txt").c_str(), 0600), 0);
    Terminal terminal(24, 80, sandbox.arguments({"-debug", "-cmdlog", "/dev/stdout"}), {{"PATH", "/no"}},
                      answerFromPipe<'3', '1'>);
    terminal.waitFor("\nDEBUG: Got lpr return code : 32512\n0x");  // what is printed before a line of the trace ...
    terminal.waitFor("\nDEBUG: Error printing LA\n\n\n");          // ... stands before it
    // Nobody reads the copy, so the run does not get to its end.
    terminal.waitFor("DEBUG: [INPUT] ==> 1\n[INPUT] ==> 1\n1\n");
}

/// Without answers in its input, zev would repeat its prompt for ever.
void limitOutput() {
    const rlimit limit{1 << 16, 1 << 16};
    setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(Streams, takeAClosedInputForNoTerminalAndTheNullDeviceForOne) {
    const std::pair<Preparation, std::string> rows[]{
        {[] { limitOutput(), close(STDIN_FILENO); }, "[INPUT] ==> \n"},
        {[] { limitOutput(), dup2(open("/dev/null", O_RDWR), STDIN_FILENO); }, ""},
    };
    const Sandbox sandbox;
    for (const auto& [prepare, echo] : rows) {
        const Finished finished = run(sandbox.arguments(), {}, "", prepare);
        EXPECT_EQ(finished.exitCode, -SIGXFSZ);
        EXPECT_THAT(finished.out, HasSubstr("\nProgram.\n" + echo + "\n\nYou have completed"));
    }
}

TEST(Streams, keepFilesOffTheNumbersOfThoseThatAreClosed) {
    const Preparation rows[]{
        [] { close(STDOUT_FILENO); }, [] { close(STDERR_FILENO); }, [] { close(STDOUT_FILENO), close(STDERR_FILENO); },
        [] { close(STDIN_FILENO), close(STDOUT_FILENO), close(STDERR_FILENO), answerFromPipe<'1'>(); }};
    for (const Preparation prepare : rows) {
        const Sandbox sandbox;
        const auto arguments = sandbox.arguments({"-debug", "-cmdlog", sandbox.path("log"), "-show_exit_code"});
        EXPECT_EQ(run(arguments, {}, "1\n", prepare).exitCode, 9);
        EXPECT_EQ(sandbox.read("log"), "1\n");
        EXPECT_EQ(sandbox.read("status/license/German.txt"), "de agreement\nde information\n");
        EXPECT_EQ(run(arguments, {}, "", prepare).exitCode, 9);
        EXPECT_EQ(sandbox.read("log"), "1\n") << "who is not asked leaves no log";
    }
}

TEST(TerminalGeometry, prefersTheEnvironmentToTheTerminalOnStandardErrorAndThatToTheDefaults) {
    const std::tuple<unsigned short, unsigned short, const char*, const char*, const char*> rows[]{
        {50, 120, "", "", "50 120\n"},      {50, 100, "132", "", "50 132\n"}, {50, 100, "", "7x", "7 100\n"},
        {50, 100, "-5", "abc", "50 100\n"}, {40, 0, "0", "", "40 80\n"},      {0, 0, "", "", "24 80\n"},
    };
    const Sandbox sandbox;
    for (const auto& [height, width, columns, lines, dimensions] : rows) {
        Terminal terminal(height, width, sandbox.arguments({"-dimout", sandbox.path("size")}),
                          {{"COLUMNS", columns}, {"LINES", lines}},
                          [] { dup2(open("/dev/null", O_RDWR), STDOUT_FILENO); });
        terminal.type("2\n2");
        EXPECT_EQ(terminal.finish().exitCode, 3);
        EXPECT_EQ(sandbox.read("size"), dimensions);
    }
}

}  // namespace zev::test
