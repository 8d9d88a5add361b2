#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <termios.h>

#include <cstring>

#include "consent/support.h"

namespace zev::test {

class AskOnTerminal : public Consent {
protected:
    [[nodiscard]] Terminal inShell(const std::string& text, const Arguments& more = {}) const {
        return {24, 80, scriptOf(text, more), {}, unprepared, shell};
    }
};

bool areSame(const termios& one, const termios& other) {
    return one.c_iflag == other.c_iflag && one.c_oflag == other.c_oflag && one.c_cflag == other.c_cflag &&
           one.c_lflag == other.c_lflag && std::memcmp(one.c_cc, other.c_cc, sizeof one.c_cc) == 0;
}

TEST_F(AskOnTerminal, hearsNothingThatWasTypedBeforeThePageWasThere) {
    const auto waitForKeys = [] {
        pollfd keyboard{STDIN_FILENO, POLLIN, 0};
        poll(&keyboard, 1, -1);
    };
    Terminal terminal = onTerminal({}, {}, 24, 80, waitForKeys);
    terminal.type("1\n1");
    expectDeclined(terminal);
    Terminal menu = onTerminal({"--choose"}, {}, 24, 80, waitForKeys);
    menu.type("1\n1");
    menu.answer(" English]: ", "fr\n1");
    expectDeclined(menu, "fr agreement");
}

TEST_F(AskOnTerminal, takesALongLineForNoAnswer) {
    Terminal terminal = onTerminal();
    const std::string yes = "1", no = "2";
    for (const std::string& tooLong : {yes + std::string(79, ' '), yes + std::string(5000, 'x'), yes + '\0'}) {
        terminal.answer("completed viewing", tooLong);
    }
    terminal.answer("completed viewing", no + std::string(78, ' '));
    terminal.answer("\r\n", no + std::string(79, ' '));
    expectDeclined(terminal, "\r\n\r\n");
}

TEST_F(AskOnTerminal, givesTheTerminalBackAndLeavesNothingOnEveryWayOut) {
    std::vector<int> signals{SIGHUP,  SIGINT, SIGQUIT, SIGTERM,   SIGUSR1, SIGUSR2, SIGALRM,  SIGXCPU,
                             SIGXFSZ, SIGIO,  SIGPROF, SIGVTALRM, SIGPWR,  SIGABRT, SIGRTMIN, SIGRTMAX};
    for (const int signal : signals) {
        Terminal terminal = onTerminal({"-s", sandbox.path("new/state")});
        const termios before = terminal.settingsBefore();
        terminal.waitFor("completed viewing");
        EXPECT_FALSE(areSame(terminal.settings(), before));
        EXPECT_TRUE(sandbox.has("new/state"));
        for (int impatience = 0; impatience < 3; ++impatience) terminal.raise(signal);
        EXPECT_EQ(terminal.finish().exitCode, -signal);
        EXPECT_TRUE(areSame(terminal.settings(), before)) << signal;
        EXPECT_FALSE(sandbox.has("new")) << signal;
    }
    for (const auto& [answer, exitCode] : {std::pair("\x03", -SIGINT), {"2\n2", 1}, {"1", 0}}) {
        Terminal terminal = onTerminal({"-s", sandbox.path("new/state")});
        const termios before = terminal.settingsBefore();
        terminal.answer("completed viewing", answer);
        EXPECT_EQ(terminal.finish().exitCode, exitCode);
        EXPECT_TRUE(areSame(terminal.settings(), before)) << exitCode;
        EXPECT_EQ(sandbox.has("new"), exitCode == 0);
    }
}

TEST_F(AskOnTerminal, canBeAnsweredHoweverTheTerminalWasLeft) {
    Terminal terminal = onTerminal({}, {}, 24, 80, [] {
        termios settings{};
        tcgetattr(STDIN_FILENO, &settings);
        settings.c_iflag = IGNCR | INLCR | ISTRIP | IUCLC | PARMRK;
        settings.c_oflag = OPOST | OLCUC | OCRNL;
        settings.c_lflag = EXTPROC;
        settings.c_cc[VEOF] = settings.c_cc[VEOL] = settings.c_cc[VEOL2] = '1';
        tcsetattr(STDIN_FILENO, TCSANOW, &settings);
        pollfd keyboard{STDIN_FILENO, POLLIN, 0};
        poll(&keyboard, 1, -1);
    });
    terminal.type("");
    terminal.answer("completed viewing", "1\r");  // which the Enter key sends
    EXPECT_EQ(terminal.finish().exitCode, 0);
    EXPECT_EQ(terminal.settings().c_cc[VEOF], '1');
    EXPECT_EQ(terminal.settings().c_iflag & (IGNCR | INLCR | ICRNL), tcflag_t{IGNCR | INLCR});
}

TEST_F(AskOnTerminal, isSuspendedAndGoesOn) {
    Terminal terminal = inShell(R"sh(
        set -m; stty susp '^Z'; stty -g >before
        "$@"; stty -g >meanwhile; echo "stopped"
        fg; echo "ended $?"; stty -g >after)sh");
    terminal.answer("completed viewing", "\x1A");
    terminal.waitFor("stopped");
    terminal.type("\n2");
    terminal.answer("\r\n\r\n", "2");
    terminal.waitFor("ended 1");
    terminal.finish();
    EXPECT_EQ(sandbox.read("before"), sandbox.read("meanwhile"));
    EXPECT_EQ(sandbox.read("before"), sandbox.read("after"));
    EXPECT_FALSE(sandbox.has("state"));
}

TEST_F(AskOnTerminal, stopsItsWholeJobInTheBackgroundUntilItIsCalled) {
    Terminal terminal = inShell(R"sh(
        set -m
        sh -c '"$@"; echo "ended $?"' job "$@" &
        until grep -q ' T ' /proc/$!/stat; do sleep .02; done
        echo in the background; fg)sh");
    terminal.waitFor("in the background");
    terminal.answer("completed viewing", "1");
    usleep(300'000);  // if the job did not yet read, the first answer was dropped; otherwise the shell ignores this one
    terminal.type("1");
    terminal.waitFor("ended 0");
}

TEST_F(AskOnTerminal, waitsNoLongerThanItWasTold) {
    Terminal terminal = onTerminal({"--wait", "1"});
    const Finished finished = terminal.finish();
    EXPECT_EQ(finished.exitCode, 2);
    EXPECT_THAT(finished.out, HasSubstr("the terms of rocket 2.0: nobody answered within 1 s.\nRead them:"));
    EXPECT_FALSE(sandbox.has("state"));

    Terminal stopped = onTerminal({"--wait", "1"});
    stopped.answer("completed viewing", "\x13");  // Ctrl-S
    EXPECT_EQ(stopped.finish().exitCode, 2);

    // Nobody reads what is shown either.
    sandbox.write("licenses/LA_en", utf16(std::u16string(200000, u'x')));
    Terminal unread = onTerminal({"--wait", "1"}, {}, 65000, 80);
    EXPECT_EQ(unread.finishUnread(), 2);
    EXPECT_FALSE(sandbox.has("state"));
}

TEST_F(AskOnTerminal, endsWithATerminalThatHangsUp) {
    for (const auto& [prepare, exitCode] :
         {std::pair<Preparation, int>([] { signal(SIGHUP, SIG_IGN); }, 2), {unprepared, -SIGHUP}}) {
        Terminal gone = onTerminal({"--wait", "0"}, {}, 24, 80, prepare);
        gone.waitFor("completed viewing");
        gone.hangUp();
        EXPECT_EQ(gone.finish().exitCode, exitCode);
        EXPECT_FALSE(sandbox.has("state"));
    }
}

TEST_F(AskOnTerminal, findsTheTerminalWhateverTheStandardDescriptorsAre) {
    for (const std::string redirections :
         {"</dev/null >log 2>log", "<&- >&- 2>&-", "</dev/full >/dev/full 2>/dev/full"}) {
        // Keeps the terminal open, because it would hang up if no process had it open.
        Terminal terminal = inShell("exec \"$@\" 9<&0 " + redirections);
        terminal.answer("completed viewing", "1");
        EXPECT_EQ(terminal.finish().exitCode, 0) << redirections;
        EXPECT_EQ(audit({sandbox.path("state")}).exitCode, 0) << redirections;
        sandbox.remove("state");
    }
}

}  // namespace zev::test
