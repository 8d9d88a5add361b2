#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <set>

#include "authoring/set_builder.h"
#include "authoring/set_files.h"
#include "authoring/support.h"

namespace zev::test {
namespace {

namespace fs = std::filesystem;

/// Names in a directory below the sandbox, hidden ones too.
std::set<std::string> namesIn(const Sandbox& sandbox, const std::string& directory) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(sandbox.path(directory))) names.insert(entry.path().filename());
    return names;
}

/// A sandbox with the sample texts, to be changed, in "eula".
struct SampleTexts : Sandbox {
    SampleTexts() { fs::copy(ZEV_SAMPLE_TEXTS, path("eula")); }

    [[nodiscard]] Outcome build(const Arguments& options = {}) const {
        Arguments arguments{"build", path("eula"), path("set")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runLicenses(arguments);
    }
};

TEST(Build, writesTheSameBytesForEveryForm) {
    const struct {
        std::string source;
        std::u16string agreement, information;
    } rows[]{
        {"a\nb\n", u"a\nb\n", u"\na\nb\n"},
        {"\xEF\xBB\xBF"
         "a",
         u"a\n", u"\na"},
        {"\r\na\r\r\n\r\n", u"\na\n\n", u"\na\n\n"},
        {"a\rb \t\xC2\xAD\xF0\x9F\x98\x80", u"a\nb \t\xAD\U0001F600\n", u"\na\nb \t\xAD\U0001F600"},
    };
    const SampleTexts texts;
    for (const auto& [source, agreement, information] : rows) {
        texts.write("eula/LA_en.txt", source);
        texts.write("eula/LI_en.txt", source);
        const Outcome outcome = texts.build();
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out, texts.path("set") + ": 36 files\n");
        EXPECT_EQ(texts.read("set/LA_en"), bigEndian(agreement));
        EXPECT_EQ(texts.read("set/LI_en"), bigEndian(information));
    }
}

TEST(Build, letsOneLanguageStandInForThoseThatAreMissing) {
    const SampleTexts texts;
    for (const char* name : {"LA_cs", "LA_el", "LI_el", "notices", "non_vur_license"}) {
        texts.remove("eula/" + std::string(name) + ".txt");
    }
    const std::string at = texts.path("eula/");
    const Outcome without = texts.build(), with = texts.build({"--stand-in", "en"});
    EXPECT_EQ(without.status, 1);
    EXPECT_EQ(without.out + without.err, at + "LA_cs.txt " + at + "LA_el.txt " + at + "LI_el.txt: error: missing\n");
    EXPECT_EQ(with.status, 0);
    EXPECT_EQ(with.out, "LA: en stands in for cs el\nLI: en stands in for el\n" + texts.path("set") + ": 34 files\n");
    EXPECT_EQ(texts.read("set/LA_el"), texts.read("set/LA_en"));
    EXPECT_EQ(texts.build({"--langset", "3", "--stand-in", "de"}).out,
              "LA: de stands in for cs\n" + texts.path("set") + ": 26 files\n");
    texts.remove("eula/LA_en.txt");
    EXPECT_EQ(texts.build({"--stand-in", "en"}).err,
              at + "LA_cs.txt " + at + "LA_el.txt " + at + "LA_en.txt: error: missing\n");
}

TEST(Build, refusesSourcesWithErrorsAndNamesFileAndLine) {
    const struct {
        const char* file;
        std::string bytes;
        std::string error;
    } rows[]{
        {"LA_en.txt", "a\nb\n\xE9t\xE9\n", ":3: error: not UTF-8\n"},
        {"LI_en.txt", bigEndian(u"a\n"), ":1: error: not UTF-8\n"},
        {"LA_en.txt", {'a', '\n', '\0'}, ":2: error: U+0000: the screen ends here, the copy does not\n"},
        {"notices.txt", "", ": error: empty\n"},
        {"LA_ru.txt", "terms", ": error: most letters are not of the language's script\n"},
        {"LA_xx.txt", "terms", ": warning: not the name of a text of any set\n"},
    };
    for (const auto& [file, bytes, error] : rows) {
        const SampleTexts texts;
        texts.write("eula/" + std::string(file), bytes);
        const Outcome outcome = texts.build();
        EXPECT_EQ(outcome.err, texts.path("eula/") + file + error);
        const bool isError = error.find("error") != error.npos;
        EXPECT_EQ(outcome.status, isError ? 1 : 0);
        EXPECT_EQ(texts.has("set"), !isError);
    }
}

TEST(Build, replacesNothingButItsOwnSets) {
    const SampleTexts texts;
    fs::create_directory(texts.path("set"));
    EXPECT_EQ(texts.build().status, 0) << "an empty directory";
    texts.write("eula/LA_en.txt", "New terms\n");
    EXPECT_EQ(texts.build().status, 0);
    const std::pair<const char*, std::string> strangers[]{
        {"LA_en", utf16(u"made by hand\n")},  {"LA_en", bigEndian(u"a\r\n")},
        {"LI_en", bigEndian(u"a\n")},         {"LA_en", "in UTF-8\n"},
        {"mine.txt", bigEndian(u"my own\n")}, {"LA_de.orig/x", ""},
    };
    for (const auto& [name, bytes] : strangers) {
        texts.write("set/" + std::string(name), bytes);
        const std::string before = texts.read("set/LA_de");
        const Outcome outcome = texts.build();
        EXPECT_EQ(outcome.status, 2);
        EXPECT_NE(outcome.err.find("which this command has not written"), std::string::npos) << outcome.err;
        EXPECT_EQ(texts.read("set/" + std::string(name)), bytes);
        texts.remove("set");
        EXPECT_EQ(texts.build().status, 0);
    }
    texts.link("set/LA_en", "LA_de");
    EXPECT_EQ(texts.build().status, 2);
}

TEST(Build, saysWhyItCannotWork) {
    const SampleTexts texts;
    texts.write("file", "");
    const std::pair<Arguments, const char*> rows[]{
        {{"build", texts.path("nowhere"), texts.path("set")}, "nowhere: No such file or directory\n"},
        {{"build", texts.path("eula"), texts.path("nowhere/set")},
         "nowhere: cannot be opened: No such file or directory\n"},
        {{"build", texts.path("eula"), texts.path("file")}, "file: Not a directory\n"},
        {{"build", texts.path("eula"), texts.path("eula")}, "which this command has not written\n"},
    };
    for (const auto& [arguments, message] : rows) {
        const Outcome outcome = runLicenses(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(outcome.err.ends_with(message)) << outcome.err;
    }
}

TEST(Build, takesAPathInAnyForm) {
    const SampleTexts texts;
    const fs::path before = fs::current_path();
    fs::current_path(texts.path());
    for (const char* form : {"set", "set/", "./set//", "eula/../set"}) {
        for (int round = 0; round < 2; ++round) EXPECT_EQ(runLicenses({"build", "eula", form}).err, "") << form;
        EXPECT_EQ(namesIn(texts, "set").size(), 36U) << form;
        texts.remove("set");
    }
    fs::current_path(before);
    EXPECT_EQ(namesIn(texts, ""), (std::set<std::string>{"eula", "licenses"}));
}

TEST(Build, followsALinkToTheDirectoryThatItReplaces) {
    const SampleTexts texts;
    fs::create_directory(texts.path("real"));
    fs::create_directory_symlink("real", texts.path("set"));
    EXPECT_EQ(texts.build().status, 0);
    EXPECT_EQ(texts.build().status, 0);
    EXPECT_TRUE(fs::is_symlink(texts.path("set")));
    EXPECT_TRUE(texts.has("real/LA_en"));
}

/// Runs `build` in a process of its own; returns how it ended, as waitpid has it.
template <class Prepare>
int buildInChild(const SampleTexts& texts, Prepare prepare, useconds_t killAfter = 0) {
    const pid_t child = fork();
    if (child == 0) {
        prepare();
        const BuildResult result = buildSet(texts.path("eula"), texts.path("set"), {4, ""});
        _exit(result.problem.empty() ? 0 : 2);
    }
    if (killAfter > 0) {
        usleep(killAfter);
        kill(child, SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(Build, keepsTheOldSetWhenTheDiskIsFull) {
    const SampleTexts texts;
    ASSERT_EQ(texts.build().status, 0);
    const std::string before = texts.read("set/LA_en");
    texts.write("eula/LA_en.txt", "New terms\n");
    const int status = buildInChild(texts, [] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{5000, 5000};
        setrlimit(RLIMIT_FSIZE, &limit);
    });
    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_EQ(texts.read("set/LA_en"), before);
    EXPECT_EQ(namesIn(texts, ""), (std::set<std::string>{"eula", "licenses", "set"})) << "and leaves nothing beside it";
}

TEST(Build, leavesTheOldSetOrTheNewOneWhenItIsKilled) {
    const SampleTexts texts;
    std::size_t killed = 0;
    for (useconds_t round = 0; round <= 60; ++round) {
        // The first text and the last tell their round, so a mixture of two sets would show.
        const std::string mark = "\n" + std::to_string(100 + round) + "\n";
        for (const std::string name : {"LA_cs", "LI_zh_TW"}) {
            texts.write("eula/" + name + ".txt", Sandbox().read(ZEV_SAMPLE_TEXTS "/" + name + ".txt") + mark);
        }
        killed += WIFSIGNALED(buildInChild(
                      texts, [] {}, round * 1000))
                      ? 1
                      : 0;
        const std::string first = texts.read("set/LA_cs"), last = texts.read("set/LI_zh_TW");
        ASSERT_EQ(namesIn(texts, "set").size(), 36U);
        ASSERT_EQ(first.substr(first.size() - 10), last.substr(last.size() - 10)) << round;
    }
    EXPECT_GT(killed, 0U);
    EXPECT_EQ(texts.build().status, 0);
    EXPECT_EQ(namesIn(texts, ""), (std::set<std::string>{"eula", "licenses", "set"})) << "the next run clears up";
}

}  // namespace
}  // namespace zev::test
