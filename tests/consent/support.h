#pragma once

#include <gmock/gmock.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <string>

#include "support/session.h"

namespace zev::test {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

/// Starts a command like a daemon: it has no terminal, and a umask that lets nobody else read its files.
inline void withoutTerminal() {
    setsid();
    umask(077);
}

/// A user who has no entry in /etc/passwd.
inline constexpr uid_t stranger = 12345;
inline void asStranger() {
    withoutTerminal();
    if (setgroups(0, nullptr) != 0 || setgid(stranger) != 0 || setuid(stranger) != 0) _exit(126);
}

/// A time in a record, as a regular expression.
inline constexpr const char* timePattern = "20..-..-..T..:..:..Z";

/// The two commands, on the set in `licenses` and with the state in `state` unless told otherwise.
class Consent : public testing::Test {
protected:
    [[nodiscard]] Arguments asking(const Arguments& more = {}) const {
        Arguments arguments = more;
        const auto add = [&](const char* option, const std::string& value) {
            if (std::ranges::count(more, option) == 0) arguments.insert(arguments.end(), {option, value});
        };
        add("-p", "rocket");
        add("-v", "2.0");
        add("-l", sandbox.path("licenses"));
        add("-s", sandbox.path("state"));
        return arguments;
    }
    [[nodiscard]] Finished ask(const Arguments& more = {}, const Environment& environment = {},
                               Preparation prepare = withoutTerminal) const {
        return run(asking(more), environment, "", prepare, askProgram);
    }
    /// Accepts the terms, whatever they are.
    [[nodiscard]] Finished accept(const Arguments& more = {}, Preparation prepare = withoutTerminal) const {
        return ask(joined({"--accept", "any"}, more), {}, prepare);
    }
    [[nodiscard]] Terminal onTerminal(const Arguments& more = {}, const Environment& environment = {},
                                      unsigned short rows = 24, unsigned short columns = 80,
                                      Preparation prepare = unprepared) const {
        return {rows, columns, asking(more), environment, prepare, askProgram};
    }
    /// Declines when a prompt has appeared, and expects that nothing is left.
    void expectDeclined(Terminal& terminal, const char* prompt = "completed viewing") const {
        terminal.answer(prompt, "2");
        terminal.answer("\r\n", "2");
        const Finished finished = terminal.finish();
        EXPECT_EQ(finished.exitCode, 1);
        EXPECT_THAT(finished.out, EndsWith("rocket: declined.\n"));
        EXPECT_FALSE(sandbox.has("state"));
    }
    /// A shell in the sandbox, in which "$@" asks, "$AUDIT" is zev-audit and `more` is set.
    [[nodiscard]] Arguments scriptOf(const std::string& text, const Arguments& more = {}) const {
        return joined(
            {"-c", "cd '" + sandbox.path() + "' || exit\nAUDIT='" + auditProgram + "'\n" + text, "script", askProgram},
            asking(more));
    }
    [[nodiscard]] Finished script(const std::string& text, const Arguments& more = {}) const {
        return run(scriptOf(text, more), {}, "", withoutTerminal, shell);
    }
    [[nodiscard]] Finished audit(const Arguments& arguments) const {
        return run(arguments, {}, "", withoutTerminal, auditProgram);
    }
    [[nodiscard]] std::string terms() const {
        return run({"--fingerprint", "-l", sandbox.path("licenses")}, {}, "", withoutTerminal, askProgram)
            .out.substr(0, 64);
    }
    /// The path of a file in the record of the terms as they are now.
    [[nodiscard]] std::string record(const std::string& name = "", const std::string& state = "state") const {
        return state + "/rocket/" + terms() + (name.empty() ? "" : "/" + name);
    }

    static constexpr const char* askProgram = ZEV_BUILT "/zev-ask";
    static constexpr const char* auditProgram = ZEV_BUILT "/zev-audit";
    static constexpr const char* shell = "/bin/sh";
    const Sandbox sandbox;
};

}  // namespace zev::test
