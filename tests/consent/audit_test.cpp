#include <filesystem>

#include "consent/support.h"

namespace zev::test {

using Audit = Consent;

TEST_F(Audit, showsARowForEachAcceptanceAndForEachVersionThatCameWithIt) {
    ASSERT_EQ(accept({"--note", "für später"}).exitCode, 0);
    ASSERT_EQ(ask({"-v", "2.1"}).exitCode, 0);
    ASSERT_EQ(accept({"-p", "shuttle"}).exitCode, 0);
    const std::string state = sandbox.path("state"), fingerprint = terms(), digits = fingerprint.substr(0, 16);
    const std::string table = audit({state}).out;
    EXPECT_THAT(table, StartsWith("product  version  terms             accepted              who "));
    const std::string common = " +" + digits + "  " + timePattern + "  [^\n]+  ";
    EXPECT_THAT(table,
                ContainsRegex("  host +mode  language  state\nrocket +2.0" + common + "any +-  +ok\nrocket +2.1" +
                              common + "log +-  +ok\nshuttle +2.0" + common + "ok\n$"));
    EXPECT_THAT(audit({"-p", "shuttle", state}).out, Not(HasSubstr("rocket")));

    const std::string tsv = audit({"--tsv", state}).out;
    EXPECT_THAT(tsv, StartsWith("product\tversion\tterms\taccepted\twho\thost\tmode\tlanguage\tzev\tprompts\tlogin\t"
                                "note\tmaster\tcopied\tstate\tpath\nrocket\t2.0\t" +
                                fingerprint + "\t"));
    EXPECT_THAT(tsv, HasSubstr("\tfür später\t-\t-\tok\t" + sandbox.path(record()) + "\n"));
    EXPECT_THAT(audit({"--json", "-p", "shuttle", state}).out,
                AllOf(StartsWith("[\n  {\n    \"product\": \"shuttle\",\n    \"version\": \"2.0\",\n    \"terms\": \"" +
                                 fingerprint + "\",\n"),
                      EndsWith("    \"copied\": null,\n    \"state\": \"ok\",\n    \"path\": \"" + state + "/shuttle/" +
                               fingerprint + "\"\n  }\n]\n")));

    EXPECT_EQ(audit({"--expect", fingerprint, state}).exitCode, 0);
    const Finished unlike = audit({"--expect", "0123456789abcdef0123456789abcdef", state});
    EXPECT_EQ(unlike.exitCode, 1);
    EXPECT_THAT(unlike.out, ContainsRegex("\n- +- +0123456789abcdef  - .*NOT ACCEPTED  " + state));
    EXPECT_THAT(audit({state, sandbox.path("none")}).out, HasSubstr("NOT ACCEPTED  " + sandbox.path("none") + "\n"));
    EXPECT_EQ(audit({"-p", "other", state}).exitCode, 1);

    // A state may be withdrawn, and the rest stays.
    sandbox.remove("state/rocket");
    EXPECT_EQ(ask().exitCode, 2);
    EXPECT_EQ(ask({"-p", "shuttle"}).exitCode, 0);
}

TEST_F(Audit, comparesTheCopiesWithALicenceDirectory) {
    sandbox.write("licenses/notices", utf16(u"notices\n"));
    ASSERT_EQ(accept({"--langset", "3"}).exitCode, 0);
    const std::string state = sandbox.path("state");
    EXPECT_EQ(audit({"-l", sandbox.path("licenses"), "--langset", "3", state}).exitCode, 0);
    EXPECT_THAT(audit({"-l", sandbox.path("licenses"), state}).out, HasSubstr("COPIES CHANGED"));
    // Whoever changes a copy can change the sums too.
    ASSERT_EQ(script("cd " + record() + " && echo x >license/English.txt && sha256sum acceptance license/* >SHA256SUMS")
                  .exitCode,
              0);
    EXPECT_EQ(audit({state}).exitCode, 0);
    EXPECT_THAT(audit({"-l", sandbox.path("licenses"), "--langset", "3", state}).out, HasSubstr("COPIES CHANGED"));
}

TEST_F(Audit, lendsARecordOfZevNoMoreThanItProves) {
    ASSERT_EQ(run(sandbox.arguments({"-t", "5"}), {{"LC_ALL", "C.UTF-8"}}).exitCode, 9);
    const std::string status = sandbox.path("status"), licenses = sandbox.path("licenses");
    EXPECT_THAT(audit({"--tsv", status}).out,
                ContainsRegex("\n-\t-\t-\t... ... .. ..:..:.. UTC 20..\t.*\tno record\t"));
    EXPECT_THAT(audit({"--tsv", "-l", licenses, status}).out, HasSubstr("\n-\t-\t" + terms() + "\t"));
    sandbox.write("status/license/English.txt", "other");
    EXPECT_THAT(audit({"--tsv", "-l", licenses, status}).out, Not(HasSubstr(terms())));
    sandbox.write("status/license/status.dat", "#\nStatus=3\n");
    EXPECT_THAT(audit({status}).out, HasSubstr("NOT ACCEPTED"));
    ASSERT_EQ(script("cd " + status + "/license && rm status.dat && mkfifo status.dat").exitCode, 0);
    EXPECT_THAT(audit({status}).out, HasSubstr("INCOMPLETE"));
}

TEST_F(Audit, showsNothingThatATerminalWouldObey) {
    ASSERT_EQ(accept().exitCode, 0);
    sandbox.write(record() + ".log", "\t\t\n2020-01-01T00:00:00Z\t\x1B]0;x\x07\tw\n");
    const std::string version = R"(s/^version=.*/version="\\\t\x1B[31m\xC2\x9B\xE2\x80\xAEй\xFF/)";
    ASSERT_EQ(script("cd " + record() + " && sed -i '" + version + ";s/^who=.*/who=日本/' acceptance && " +
                     "sha256sum acceptance license/* >SHA256SUMS")
                  .exitCode,
              0);
    const std::string shown = "\"\\??[31m??й?";
    for (const char* form : {"--tsv", "--json", "--"}) {
        const Finished finished = audit({form, sandbox.path("state")});
        EXPECT_EQ(finished.exitCode, 0) << finished.err;
        // NOLINTNEXTLINE(misc-misleading-bidirectional): it is one of those that must not be shown
        for (const char* obeyed : {"\x1B", "\xC2\x9B", "\xE2\x80\xAE", "\x07", "\xFF"})
            EXPECT_THAT(finished.out, Not(HasSubstr(obeyed)));
        EXPECT_THAT(finished.out, AllOf(HasSubstr("[31m??й?"), HasSubstr("?]0;x?"), HasSubstr("日本")));
    }
    const std::string tsv = audit({"--tsv", sandbox.path("state")}).out;
    EXPECT_THAT(tsv, HasSubstr("\t" + shown + "\t"));
    EXPECT_EQ(std::ranges::count(tsv, '\n'), 3) << "a line of the log without a time is none";
    EXPECT_THAT(ask().out, Not(HasSubstr("\x1B")));
    sandbox.write("licenses/notices", utf16(u"new\n"));
    Terminal notice = onTerminal({"-v", "3.0"});
    notice.waitFor("have changed since " + shown + " (accepted 20");
}

TEST_F(Audit, refusesAWrongCall) {
    EXPECT_EQ(script("exec \"$AUDIT\" --json . >/dev/full").exitCode, 2);
    EXPECT_EQ(audit({"--version"}).exitCode, 0);
    for (const Arguments& wrong : {Arguments{""},
                                   {"--odd", "."},
                                   {"--expect"},
                                   {"--expect", "12", "."},
                                   {"-l", "/nowhere", "."},
                                   {"-p", "../x", "."}}) {
        EXPECT_EQ(audit(wrong).exitCode, 2) << wrong.front();
    }
}

}  // namespace zev::test
