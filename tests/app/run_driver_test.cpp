#include <gmock/gmock.h>

#include "support/process.h"

namespace zev::test {

TEST(RunDriver, recordsNothingWhenDeclinedAndRemembersAnAcceptance) {
    const Sandbox sandbox;
    const Finished declined = run(sandbox.arguments({"-show_exit_code"}), {}, "2\n2\n");
    EXPECT_THAT(declined.out, testing::EndsWith("\n[INPUT] ==> 2\nExited with: 3\n"));
    EXPECT_FALSE(sandbox.has("status/license"));

    EXPECT_FALSE(sandbox.has("status/status.dat")) << "the probe leaves nothing behind";
    sandbox.write("status/status.dat", "not ours");
    const Finished accepted = run(sandbox.arguments({"-debug", "-m", ""}), {}, "1\n");
    EXPECT_EQ(accepted.exitCode, 9);
    EXPECT_EQ(sandbox.read("status/status.dat"), "not ours");
    EXPECT_THAT(accepted.err, testing::HasSubstr("DEBUG: No status.dat found at " + sandbox.path("status/license") +
                                                 "/status.dat\nDEBUG: No status.dat found at /status.dat\n"));

    sandbox.write("m/status.dat", "Status=9\n");
    EXPECT_EQ(run({"-l", sandbox.path("licenses"), "-s", sandbox.path("other"), "-m", sandbox.path("m")}).exitCode, 9);

    sandbox.remove("status/license/German.txt");
    EXPECT_EQ(run(sandbox.arguments({"-show_exit_code"})).out, "Exited with: 9\n");
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
    const std::tuple<const char*, int, void (*)(const Sandbox&), Arguments> rows[]{
        {"status directory below a file", 20, [](const Sandbox&) {}, {"-s", "/dev/null/status"}},
        {"status directory that is a file", 21, [](const Sandbox& s) { s.write("status", ""); }, {}},
        {"probe that cannot be created", 21, [](const Sandbox& s) { s.link("status/status.dat", "/no/where"); }, {}},
        {"text that ends at once",
         23,
         [](const Sandbox& s) {
             s.write("licenses/LA_en", {"\0\0", 2});
         },
         {}},
        {"nothing to copy", 15, [](const Sandbox& s) { s.remove("licenses"); }, {"-t", "5"}},
        {"copies cannot be created", 15, [](const Sandbox& s) { s.write("status/license", ""); }, {"-t", "5"}},
    };
    for (const auto& [name, exitCode, spoil, more] : rows) {
        SCOPED_TRACE(name);
        const Sandbox sandbox;
        spoil(sandbox);
        const Finished finished = run(sandbox.arguments(more), {}, "1\n");
        EXPECT_EQ(finished.exitCode, exitCode);
        EXPECT_EQ(finished.out, "Exited with: " + std::to_string(exitCode) + "\n");
    }
}

TEST(RunDriver, honoursThePreferredLanguageWhereItsFilesExist) {
    const std::pair<const char*, const char*> rows[]{
        {"fr_CA", "Using locale/resource for language fr\nDEBUG: Locale information:\nDEBUG:   isBogus        : no\n"
                  "DEBUG:   language       : fr\nDEBUG:   country        : CA\nDEBUG:   variant        : \n"
                  "DEBUG:   name           : fr_CA\nDEBUG:   base name      : fr_CA\n"
                  "DEBUG:   ISO 3 language : fra\nDEBUG:   ISO 3 country  : CAN\n"},
        {"zh_TW", "Using locale/resource for language zh\n"},
        {"xx", "Could not setLocale for language xx\n"},
        {"de", "Could not set locale, license not available for language de\n"},
        {"english", "Could not set locale, license not available for language english\n"},
    };
    const Sandbox sandbox;
    sandbox.remove("licenses/LI_de");
    for (const auto& [preferred, line] : rows) {
        const Finished finished = run(sandbox.arguments({"-debug", "-t", "5", "-setlang", preferred}));
        EXPECT_THAT(finished.err, testing::HasSubstr(std::string("DEBUG: ") + line));
    }
    EXPECT_THAT(
        run(sandbox.arguments({"-debug", "-t", "5"}), {{"LC_ALL", "nl_NL.UTF-8"}}).err,
        testing::HasSubstr("DEBUG: Defaulting to English locale/resource\nDEBUG: Using resource for language en\n"));
}

}  // namespace zev::test
