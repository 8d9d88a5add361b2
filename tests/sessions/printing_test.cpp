#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "support/session.h"

namespace zev::test {

using testing::HasSubstr;

/// Print commands of our own in the PATH; they log how they were called and keep what they were given. A file is
/// already in the place of the document, and the caller ignores SIGCHLD.
class Printing : public testing::Test {
protected:
    Finished print(int lpExit, int lprExit, Environment environment = {}) {
        sandbox.write("licenses/LA_de", utf16(u"€uro " + std::u16string(130, u'x') + u"\n"));
        for (const auto& [command, exitCode] : {std::pair("bin/lp", lpExit), {"bin/lpr", lprExit}}) {
            sandbox.write(command, "#!/bin/sh\ncd '" + sandbox.path() +
                                       "'\necho noise\necho ${0##*/} $* >>calls\ncat $1 >paper\nls -l $1 >mode\nexit " +
                                       std::to_string(exitCode));
            std::filesystem::permissions(sandbox.path(command), std::filesystem::perms::owner_all);
        }
        environment.insert({{"PATH", sandbox.path("bin") + ":/usr/bin:/bin"}, {"LC_ALL", "de_DE.ISO-8859-15"}});
        Finished finished = run(sandbox.arguments(), environment, "3\n1\n", [] {
            mkfifo(("/tmp/zevdoc_" + std::to_string(getpid()) + "_de.text").c_str(), 0666);
            std::signal(SIGCHLD, SIG_IGN);
        });
        const std::string calls = sandbox.read("calls");
        document = calls.substr(3, calls.find('\n') - 3);
        EXPECT_EQ(calls, lpExit == 0 ? "lp " + document + "\n" : "lp " + document + "\nlpr " + document + "\n");
        return finished;
    }

    const Sandbox sandbox;
    std::string document;
};

TEST_F(Printing, handsAPrivateDocumentOfSixtyColumnsToTheFirstCommandThatTakesIt) {
    sandbox.write("licenses/non_vur_license", utf16(u"terms"));
    const std::string sixty(60, 'x');
    EXPECT_THAT(print(0, 0).out, testing::Not(HasSubstr("noise")));
    EXPECT_EQ(sandbox.read("paper"),
              "\xA4uro \n" + sixty + "\n" + sixty + "\n" + "xxxxxxxxxx\nde information\n\nterms\n");
    EXPECT_THAT(document, testing::MatchesRegex("/tmp/zevdoc_[0-9]+_de\\.text"));
    EXPECT_THAT(sandbox.read("mode"), testing::StartsWith("-rw-------"));
    EXPECT_TRUE(std::filesystem::remove(document)) << "a printed document is left in place";
}

TEST_F(Printing, fallsBackToTheSecondCommand) {
    const Finished finished = print(3, 0, {{"ZEV_DEBUG", ""}});
    EXPECT_THAT(finished.err, HasSubstr("DEBUG: Got lp return code : 768\n"));
    EXPECT_THAT(finished.out, HasSubstr("noise\nnoise\n")) << "the commands speak when tracing";
    EXPECT_TRUE(std::filesystem::remove(document));
}

TEST_F(Printing, showsAnAddressWhenNoCommandTakesTheDocument) {
    const Finished finished = print(1, 2);
    EXPECT_EQ(finished.exitCode, 9);
    EXPECT_THAT(finished.out, testing::ContainsRegex("\\[INPUT\\] ==> 3\n0x[0-9a-f]+\n\n\n"));
    EXPECT_FALSE(std::filesystem::exists(document));
}

TEST(PrintDocument, doesNotReplaceADirectoryOfItsName) {
    const Sandbox sandbox;
    // After a switch to English, which is then in the name of the document.
    const Finished finished = run(sandbox.arguments({"-debug"}), {{"LC_ALL", "de_DE.UTF-8"}}, "5\n3\n1\n", [] {
        mkdir(("/tmp/zevdoc_" + std::to_string(getpid()) + "_en.text").c_str(), 0700);
    });
    const auto begin = finished.err.find("/tmp/zevdoc_");
    const std::string path = finished.err.substr(begin, finished.err.find('\n', begin) - begin);
    EXPECT_THAT(finished.err, HasSubstr("DEBUG: Unable to create file " + path + "\nDEBUG: Error printing LA\n"));
    EXPECT_TRUE(std::filesystem::remove(path));
}

}  // namespace zev::test
