#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "support/session.h"

namespace zev::test {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

/// The companions under one shell: dash with the utilities of the system, or BusyBox's ash with BusyBox's alone. By the
/// umask, nobody but the caller may read what is made.
class Companion : public testing::TestWithParam<std::string> {
protected:
    Companion() {
        umask(077);
        if (GetParam() == "dash") return;
        shell_ = "/bin/busybox";
        applet_ = {"ash"};
        path_ = sandbox.path("applets");
        std::filesystem::create_directory(path_);
        EXPECT_EQ(runShell({"--install", "-s", path_}).exitCode, 0) << "BusyBox is needed";
    }

    /// The arguments that make the shell run a companion.
    [[nodiscard]] Arguments command(const std::string& companion, const Arguments& arguments) const {
        return joined(joined(applet_, {ZEV_BUILT "/" + companion}), arguments);
    }
    /// The arguments that make the shell ask for the terms in `licenses`, with the state in `status`.
    [[nodiscard]] Arguments asking(const Arguments& more = {}) const {
        return command("zev-ask", joined(sandbox.arguments({"-p", "acme", "-v", "3.1"}), more));
    }
    /// The arguments that make the shell run a script in the sandbox, in which "$@" asks and "$AUDIT" is zev-audit.
    [[nodiscard]] Arguments script(const std::string& text) const {
        return joined(joined(applet_, {"-c", "cd \"$HERE\" || exit\n" + text, "script", shell_}), asking());
    }
    /// Runs the shell without a terminal.
    [[nodiscard]] Finished runShell(const Arguments& arguments, const Environment& more = {}) const {
        return run(
            arguments, environment(more), "", [] { setsid(); }, shell_);
    }
    [[nodiscard]] Terminal onTerminal(const Arguments& arguments, const Environment& more = {},
                                      unsigned short rows = 24, unsigned short columns = 80) const {
        return {rows, columns, arguments, environment(more), unprepared, shell_};
    }
    [[nodiscard]] Finished ask(const Arguments& more = {}) const { return runShell(asking(more)); }
    [[nodiscard]] Finished audit(const Arguments& arguments) const { return runShell(command("zev-audit", arguments)); }
    [[nodiscard]] std::string terms() const {
        return runShell(command("zev-ask", {"--fingerprint", "-l", sandbox.path("licenses")})).out.substr(0, 64);
    }
    /// A path inside the record of the terms as they are now.
    [[nodiscard]] std::string record(const std::string& name, const std::string& state = "status") const {
        return state + "/" + terms() + "/" + name;
    }

    const Sandbox sandbox;

private:
    [[nodiscard]] Environment environment(Environment more) const {
        more.insert({{"PATH", path_}, {"HERE", sandbox.path()}, {"AUDIT", ZEV_BUILT "/zev-audit"}});
        return more;
    }

    std::string shell_ = "/bin/dash";
    Arguments applet_;
    std::string path_ = "/usr/bin:/bin";
};

using Ask = Companion;
using Audit = Companion;
INSTANTIATE_TEST_SUITE_P(Shells, Ask, testing::Values("dash", "busybox"), [](const auto& s) { return s.param; });
INSTANTIATE_TEST_SUITE_P(Shells, Audit, testing::Values("dash", "busybox"), [](const auto& s) { return s.param; });

constexpr const char* time = "20..-..-..T..:..:..Z";

TEST_P(Ask, recordsAnAcceptanceAndAsksAgainOnlyForOtherTerms) {
    sandbox.write("licenses/LA_ja", utf16(u"契約\n"));
    Terminal terminal = onTerminal(asking(), {{"LANG", "ja_JP"}});
    terminal.answer("契約", "1");
    const Finished finished = terminal.finish();
    const std::string shortTerms = terms().substr(0, 16);
    EXPECT_EQ(finished.exitCode, 0);
    EXPECT_THAT(finished.out, EndsWith("acme 3.1: terms " + shortTerms + " accepted (dialogue)\n"));

    EXPECT_THAT(sandbox.read(record("acceptance")),
                MatchesRegex("product=acme\nversion=3.1\nterms=" + terms() + "\naccepted=" + time +
                             "\nwho=[^\n]+\nhost=[^\n]+\nmode=dialogue\nlanguage=ja\n"));
    EXPECT_EQ(sandbox.read(record("license/Japanese.txt")), "契約\nja information\n");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sandbox.path("status"))) {
        struct stat status {};
        stat(entry.path().c_str(), &status);
        EXPECT_EQ(status.st_mode & 07777, entry.is_directory() ? 0755 : 0644) << entry.path();
    }

    const Finished again = ask({"--zev", "/nowhere"});
    EXPECT_EQ(again.exitCode, 0) << again.err;
    EXPECT_THAT(again.out, MatchesRegex("acme 3.1: terms " + shortTerms + " accepted " + time + " by [^\n]+\n"));

    sandbox.write("licenses/notices", utf16(u"new\n"));
    EXPECT_EQ(ask().exitCode, 2);
    EXPECT_EQ(ask({"--accept", "any"}).exitCode, 0);
    EXPECT_EQ(audit({sandbox.path("status")}).exitCode, 0) << "both records";
}

TEST_P(Ask, acceptsWithoutATerminalOnlyWhatWasAcceptedBeforehand) {
    const std::string known = terms();
    const std::tuple<std::string, int, std::string> rows[]{
        {"", 2,
         "zev-ask: there is no terminal to show the terms of acme on.\n"
         "To accept them all the same, read them with --show and set ZEV_ACCEPT=" +
             known.substr(0, 16) + "\n"},
        {"0123456789abcdef", 2, "but 0123456789abcdef was accepted beforehand: they have changed, read them again.\n"},
        {known.substr(0, 15), 3, "is no fingerprint"},
        {known + "0", 3, "is no fingerprint"},
        {"yes, all of them", 3, "is no fingerprint"},
        {known.substr(0, 16), 0, " accepted (unattended)\n"},
        {known, 0, " accepted (unattended)\n"},
        {"any", 0, " accepted (unattended)\n"},
    };
    for (const auto& [accept, exitCode, says] : rows) {
        sandbox.remove("status");
        const Finished finished = runShell(asking(), {{"ZEV_ACCEPT", accept}});
        EXPECT_EQ(finished.exitCode, exitCode) << accept;
        EXPECT_THAT(finished.out + finished.err, HasSubstr(says)) << accept;
        EXPECT_EQ(sandbox.has("status"), exitCode == 0) << accept;
    }
}

TEST_P(Ask, findsTheTerminalWhateverTheStandardDescriptorsAre) {
    for (const std::string redirections : {"</dev/null >log 2>log", "<&- >&- 2>&-"}) {
        // The terminal would hang up while no one has it open.
        Terminal terminal = onTerminal(script("exec \"$@\" 9<&0 " + redirections), {}, 24, 40);
        terminal.answer("You have completed viewing the license \r\nagreement.", "2\n2");
        EXPECT_EQ(terminal.finish().exitCode, 1) << redirections;
    }
}

TEST_P(Ask, showsTheTextOnScreensWhereZevWouldShowNone) {
    // In German, and behind "5" in English, the prompt is a row or more higher than the other, and fills the screen.
    sandbox.write("licenses/non_vur_license", utf16(u"other terms\n"));
    for (const auto rows : std::initializer_list<unsigned short>{3, 10, 11, 12, 13}) {
        Terminal terminal = onTerminal(asking(), {{"LANG", "de_DE"}}, rows, 40);
        for (const char* text : {"de agreement", "en agreement"}) {
            terminal.answer(text, "4");
            terminal.answer("other terms", "q\n5");
        }
        terminal.type("2\n2");
        EXPECT_EQ(terminal.finish().exitCode, 1);
    }
}

TEST_P(Ask, givesTheTerminalBackAndLeavesNothingOnEveryWayOut) {
    const std::tuple<const char*, int, int> ways[]{
        {"1", 0, 0}, {"2\n2", 0, 1}, {"\x03", 0, -1}, {"", SIGHUP, -1}, {"", SIGTERM, -1}};
    for (const auto& [answer, signal, exitCode] : ways) {
        sandbox.remove("new");
        Terminal terminal = onTerminal(asking({"-s", sandbox.path("new/state")}));
        terminal.waitFor("completed viewing");
        EXPECT_EQ(terminal.settings().c_cc[VEOF], _POSIX_VDISABLE);
        terminal.type("\x04");
        terminal.waitFor("completed viewing");
        for (int impatience = 0; impatience < 4 && signal != 0; ++impatience, usleep(2000)) terminal.raise(signal);
        if (signal == 0) terminal.type(answer);
        const Finished finished = terminal.finish();
        EXPECT_EQ(finished.exitCode, exitCode) << answer << signal;
        EXPECT_EQ(finished.out.find("acme: declined.\n") != std::string::npos, exitCode == 1) << answer;
        EXPECT_EQ(sandbox.has("new"), exitCode == 0) << answer << signal;
        EXPECT_EQ(terminal.settings().c_cc[VEOF], '\x04') << answer << signal;
    }
}

TEST_P(Ask, endsByItselfWhenAnswersCanNoLongerBeRead) {
    Terminal tooLong = onTerminal(asking());
    tooLong.answer("completed viewing", "0" + std::string(79, ' '));
    const Finished finished = tooLong.finish();
    EXPECT_EQ(finished.exitCode, 3);
    EXPECT_THAT(finished.out, HasSubstr("the terminal has gone, or an answer was longer than 79 bytes.\n"));
    Terminal gone = onTerminal(script("trap '' HUP; exec \"$@\" 2>" + sandbox.path("log")));
    gone.waitFor("completed viewing");
    gone.hangUp();
    EXPECT_EQ(gone.finish().exitCode, 3);
    EXPECT_FALSE(sandbox.has("status"));
}

TEST_P(Ask, saysWhatItLacks) {
    sandbox.write("empty/LA_en", "");
    std::string missing = "missing or not readable:";
    for (const char* kind : {" LA_", " LI_"}) {
        for (const auto& language : languages()) missing += kind + std::string(language.code);
    }
    sandbox.write("odd/LA_en/directory", "");
    const std::pair<Arguments, std::string> rows[]{
        {{"-l", sandbox.path("empty")}, missing.erase(missing.find(" LA_en"), 6) + "\n"},
        {{"-l", sandbox.path("odd")}, " LA_en "},
        {{"--zev", "/bin/true"}, "there is no zev at /bin/true"},
        {{"-s", sandbox.path("licenses/LA_en/state")}, "/LA_en/state cannot be written: "},
        {{"-p", "a\nb"}, "-p needs a word"},
        {{"-v", "../1"}, "-v needs a word"},
        {{"-p"}, "-p needs an argument"},
        {{"-l", "-s"}, "-l needs an argument"},
        {{"stray"}, "unknown option stray"},
    };
    for (const auto& [arguments, says] : rows) {
        const Finished finished = ask(joined({"--accept", "any"}, arguments));
        EXPECT_EQ(finished.exitCode, 3) << says;
        EXPECT_THAT(finished.err, HasSubstr(says));
        EXPECT_FALSE(sandbox.has("status"));
    }
    sandbox.write("licenses/LI_en", utf16(u""));
    sandbox.write("licenses/LA_en", utf16(u""));
    EXPECT_THAT(ask().err, HasSubstr("no terminal"));
    EXPECT_THAT(onTerminal(asking()).finish().out,
                HasSubstr("zev-ask: zev ended with 23: Failed breakText for license text"));
    for (const auto& [locale, language] : {std::pair("de_DE.ISO-8859-1", "ja"), {"ja_JP.eucJP", "ko"}}) {
        EXPECT_THAT(onTerminal(asking({"--lang", language}), {{"LANG", locale}}).finish().out,
                    HasSubstr("lacks the letters of the terms"));
    }
    sandbox.write(record("license/English.txt"), "");
    mkfifo(sandbox.path(record("acceptance")).c_str(), 0666);
    EXPECT_THAT(ask().err, HasSubstr(terms() + " is no whole record"));
}

TEST_P(Ask, takesPathsOfAnyKind) {
    const std::string odd = "a 'b\" $c\n*d";
    std::filesystem::rename(sandbox.path("licenses"), sandbox.path(odd));
    const Finished finished =
        runShell(script(R"(exec "$@" -l "$ODD" -s "./$ODD//" --accept any)"), {{"ODD", odd}, {"CDPATH", "/"}});
    EXPECT_EQ(finished.exitCode, 0) << finished.err;
    EXPECT_EQ(audit({sandbox.path(odd)}).exitCode, 0);
    EXPECT_THAT(runShell(script("mkdir gone && cd gone && rmdir ../gone && exec \"$@\" -s state --accept any")).err,
                HasSubstr("-s state starts from a directory that is gone."));
}

TEST_P(Ask, leavesAWholeRecordOrNothingOnAFullDisk) {
    int whole = 0;
    for (int pages = 8; pages < 150; pages += 10) {
        const Finished finished = runShell(script(R"sh(
            mkdir -p disk && mount -t tmpfs -o size="$SIZE" tmpfs disk || exit 99
            "$@" -s disk/state --accept any
            code=$?
            "$AUDIT" disk/state
            ls -A disk
            umount disk
            exit $code)sh"),
                                           {{"SIZE", std::to_string(pages * 4) + "k"}});
        if (finished.exitCode == 99) GTEST_SKIP() << "may not mount";
        const bool accepted = finished.exitCode == 0;
        EXPECT_TRUE(accepted || finished.exitCode == 3) << finished.err;
        EXPECT_THAT(finished.out, EndsWith(accepted ? "  ok\nstate\n" : "  NOT ACCEPTED  ./disk/state\n")) << pages;
        if (accepted) ++whole;
    }
    EXPECT_GT(whole, 0);
}

TEST_P(Ask, leavesAWholeRecordOrNoneWhenItIsKilled) {
    const Finished finished = runShell(script(R"sh(
        for pause in 0 .03 .06 .09 .12 .15 .18 .21 .25 .30 .40 .60; do
            setsid "$@" --accept any &
            sleep $pause
            kill -s KILL -- -$!
            wait $!
            [ -z "$(ls status)" ] || "$AUDIT" status || echo 'half a record'
            "$@" --accept any && "$AUDIT" status || echo 'no record'
            [ "$(ls -A status | wc -l)" = 1 ] || echo "left over: $(ls -A status)"
            rm -r status
        done)sh"));
    EXPECT_THAT(finished.out, Not(ContainsRegex("half|no record|left over"))) << finished.err;
}

TEST_P(Ask, makesOneRecordInManyRunsAtOnce) {
    const Finished finished = runShell(script(R"sh(
        for i in 1 2 3 4 5 6 7 8 9 10; do "$@" --accept any & runs="$runs $!"; done
        for run in $runs; do wait $run || echo failed; done
        "$AUDIT" status || echo failed
        ls -A status | wc -l)sh"));
    EXPECT_THAT(finished.out, AllOf(Not(HasSubstr("failed")), EndsWith("\n1\n"))) << finished.err;
}

TEST_P(Ask, countsTheRecordOfAGroup) {
    const std::string master = sandbox.path("master");
    EXPECT_EQ(ask({"-m", master, "--accept", "any"}).exitCode, 0);
    EXPECT_THAT(ask({"-m", master, "-s", sandbox.path("other")}).out, EndsWith(" accepted (master)\n"));
    EXPECT_THAT(sandbox.read(record("acceptance", "other")), HasSubstr("mode=master\n"));
    EXPECT_EQ(audit({master, sandbox.path("other")}).exitCode, 0);

    sandbox.write("file", "");
    const Finished finished = ask({"-m", sandbox.path("file/master"), "-s", sandbox.path("third"), "--accept", "any"});
    EXPECT_EQ(finished.exitCode, 0);
    EXPECT_THAT(finished.err, HasSubstr("not in the master directory"));
    EXPECT_TRUE(sandbox.has(record("acceptance", "third")));
}

TEST_P(Ask, offersAMenuOfTheLanguages) {
    Terminal latin = onTerminal(asking({"--choose"}), {{"LC_ALL", "de_DE.ISO-8859-1"}});
    for (const auto& language : languages()) {
        if (language.code != std::string("zh_TW")) latin.waitFor(std::string(". ") + language.englishName + "\r\n");
    }
    latin.answer("[de] ", "17\nx\n\x04\n");
    latin.waitFor("de agreement");

    Terminal utf8 = onTerminal(asking({"--choose"}));
    utf8.waitFor(" 8. 日本語\r\n");
    utf8.answer("[en] ", "13");
    utf8.waitFor("ru agreement");
}

TEST_P(Ask, showsTheTextToWhoeverReadsItElsewhere) {
    sandbox.write("licenses/non_vur_license", utf16(u"außerdem\n"));
    const Finished finished =
        runShell(command("zev-ask", {"--show", "-l", sandbox.path("licenses")}), {{"LANG", "de_DE.ISO-8859-1"}});
    EXPECT_EQ(finished.out, "de agreement\nde information\n\naußerdem\n") << finished.err;
}

TEST_P(Audit, tellsTheStateOfEveryRecord) {
    ASSERT_EQ(ask({"--accept", "any"}).exitCode, 0);
    const std::string status = sandbox.path("status"), whole = sandbox.read(record("acceptance"));
    const std::string shown = audit({status}).out;
    EXPECT_THAT(shown, StartsWith("product  version  terms             accepted              who "));
    EXPECT_THAT(shown, ContainsRegex("\nacme     3.1      " + terms().substr(0, 16) +
                                     "  20..-..-..T..:..:..Z  [^ ]+ +unattended  -     ok\n$"));
    EXPECT_EQ(audit({"--expect", terms(), status}).exitCode, 0);
    EXPECT_THAT(
        audit({"--expect", "0123456789abcdef", status}).out,
        HasSubstr("acme     -        0123456789abcdef  -                     -     -           -     NOT ACCEPTED  "));

    const std::tuple<const char*, std::string, const char*> faults[]{
        // A file, what it is to hold, or nothing where there is to be none, and the state.
        {"license/English.txt", "other", "COPIES CHANGED"},
        {"license/English.txt", "", "COPIES CHANGED"},
        {"license/more.txt", "more", "COPIES CHANGED"},
        {"SHA256SUMS", "", "INCOMPLETE"},
        {"acceptance", "", "INCOMPLETE"},
        {"acceptance", "accepted=x\n", "INCOMPLETE"},
        {"acceptance", "terms=" + terms() + "\n", "INCOMPLETE"},
        {"acceptance", whole + "who=x\n", "COPIES CHANGED"},
    };
    for (const auto& [file, content, state] : faults) {
        sandbox.remove("status");
        ASSERT_EQ(ask({"--accept", "any"}).exitCode, 0);
        sandbox.remove(record(file));
        if (!content.empty()) sandbox.write(record(file), content);
        const Finished finished = audit({status});
        EXPECT_EQ(finished.exitCode, 1) << file << content;
        EXPECT_THAT(finished.out, HasSubstr(state + ("  " + status) + "/" + terms())) << file << content;
    }
    sandbox.link(record("license/more.txt"), "/dev/zero");
    EXPECT_THAT(audit({status}).out, HasSubstr("COPIES CHANGED"));
    EXPECT_THAT(audit({sandbox.path("none")}).out, HasSubstr("NOT ACCEPTED  " + sandbox.path("none")));
}

TEST_P(Audit, lendsARecordOfZevNoMoreThanItProves) {
    ASSERT_EQ(run(sandbox.arguments({"-t", "5"}), {{"LC_ALL", "C.UTF-8"}}).exitCode, 9);
    const std::string status = sandbox.path("status");
    EXPECT_THAT(audit({"--tsv", status}).out,
                ContainsRegex("\n-\t-\t-\t... ... .. ..:..:.. UTC 20..\t-\t-\t-\t-\tno record\t"));
    EXPECT_THAT(audit({"--tsv", "-l", sandbox.path("licenses"), status}).out, HasSubstr("\n-\t-\t" + terms() + "\t"));
    sandbox.write("status/license/English.txt", "other");
    EXPECT_THAT(audit({"--tsv", "-l", sandbox.path("licenses"), status}).out, Not(HasSubstr(terms())));
    sandbox.write("status/license/status.dat", "#\nStatus=3\n");
    EXPECT_THAT(audit({status}).out, HasSubstr("NOT ACCEPTED"));
}

TEST_P(Audit, writesWhatOthersCanRead) {
    ASSERT_EQ(ask({"--accept", "any"}).exitCode, 0);
    std::string changed = sandbox.read(record("acceptance"));
    changed.replace(changed.find("3.1"), 3, "\"\\\t\x1B[31m\xC2\x9B");
    sandbox.write(record("acceptance"), changed);
    const std::string json = audit({"--json", sandbox.path("status")}).out;
    EXPECT_THAT(json, StartsWith("[\n  {\"product\": \"acme\", \"version\": \"\\\"\\\\??[31m??\", \"terms\": \"" +
                                 terms() + "\", "));
    EXPECT_THAT(json, EndsWith(", \"lang\": null, \"state\": \"COPIES CHANGED\", \"path\": \"" +
                               sandbox.path("status/" + terms()) + "\"}\n]\n"));
    EXPECT_EQ(audit({"--tsv", "--", sandbox.path("status")}).out.find('\x1B'), std::string::npos);
}

TEST_P(Audit, refusesAWrongCall) {
    EXPECT_EQ(runShell(script("exec \"$AUDIT\" --json . >/dev/full")).exitCode, 2);
    for (const Arguments& wrong :
         {Arguments{}, {""}, {"--odd", "."}, {"--expect"}, {"--expect", "12", "."}, {"-l", "/nowhere", "."}}) {
        EXPECT_EQ(audit(wrong).exitCode, 2);
    }
}

}  // namespace zev::test
