#include <gmock/gmock.h>

#include "companions/companion.h"

namespace zev::test {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

using Audit = Companion;
INSTANTIATE_TEST_SUITE_P(Shells, Audit, testing::Values("dash", "busybox"), [](const auto& s) { return s.param; });

TEST_P(Audit, tellsTheStateOfEveryRecord) {
    ASSERT_EQ(ask({"--accept", "any"}).exitCode, 0);
    const std::string status = sandbox.path("status"), whole = sandbox.read(record("acceptance"));
    const std::string shown = audit({status}).out;
    EXPECT_THAT(shown, testing::StartsWith("product  version  terms             accepted              who "));
    EXPECT_THAT(shown, testing::ContainsRegex("\nacme     3.1      " + terms().substr(0, 16) +
                                              "  20..-..-..T..:..:..Z  [^ ]+ +unattended  -     ok\n$"));
    EXPECT_EQ(audit({"--expect", terms(), status}).exitCode, 0);
    EXPECT_THAT(
        audit({"--expect", "0123456789abcdef", status}).out,
        HasSubstr("acme     -        0123456789abcdef  -                     -     -           -     NOT ACCEPTED  "));

    const struct {
        const char* file;
        std::string content;  ///< or none at all
        const char* state;
    } faults[]{
        {"license/English.txt", "other", "COPIES CHANGED"},
        {"license/English.txt", "", "COPIES CHANGED"},
        {"license/more.txt", "more", "COPIES CHANGED"},
        {"SHA256SUMS", "", "INCOMPLETE"},
        {"acceptance", "", "INCOMPLETE"},
        {"acceptance", "terms=0\n", "INCOMPLETE"},
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
    sandbox.link(record("license/English.txt"), "/dev/zero");
    EXPECT_THAT(audit({status}).out, HasSubstr("COPIES CHANGED"));
    EXPECT_THAT(audit({sandbox.path("none")}).out, HasSubstr("NOT ACCEPTED  " + sandbox.path("none")));
}

TEST_P(Audit, lendsARecordOfZevNoMoreThanItProves) {
    ASSERT_EQ(run(sandbox.arguments({"-t", "5"}), {{"LC_ALL", "C.UTF-8"}}).exitCode, 9);
    const std::string status = sandbox.path("status");
    EXPECT_THAT(audit({"--tsv", status}).out,
                testing::ContainsRegex("\n-\t-\t-\t... ... .. ..:..:.. UTC 20..\t-\t-\t-\t-\tno record\t"));
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
    EXPECT_THAT(json,
                testing::StartsWith("[\n  {\"product\": \"acme\", \"version\": \"\\\"\\\\??[31m??\", \"terms\": \"" +
                                    terms() + "\", "));
    EXPECT_THAT(json, EndsWith(", \"lang\": null, \"state\": \"COPIES CHANGED\", \"path\": \"" +
                               sandbox.path("status/" + terms()) + "\"}\n]\n"));
    EXPECT_EQ(audit({"--tsv", "--", sandbox.path("status")}).out.find('\x1B'), std::string::npos);
}

TEST_P(Audit, refusesAWrongCall) {
    for (const Arguments& wrong :
         {Arguments{}, {"--odd", "."}, {"--expect"}, {"--expect", "12", "."}, {"-l", "/nowhere", "."}}) {
        EXPECT_EQ(audit(wrong).exitCode, 2);
    }
}

}  // namespace zev::test
