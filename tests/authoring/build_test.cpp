#include <gtest/gtest.h>

#include <set>

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

/// How many files a set has: the agreement and the information of every language, the terms of others and the notices.
const std::size_t filesOfASet = 2 * languages().size() + 2;

/// A sandbox with the sample texts, to be changed, in "eula".
struct SampleTexts : Sandbox {
    SampleTexts() { fs::copy(ZEV_SAMPLE_TEXTS, path("eula")); }

    [[nodiscard]] Finished build(const Arguments& options = {}, Preparation prepare = unprepared) const {
        return runLicenses(joined({"build", path("eula"), path("set")}, options), prepare);
    }
};

TEST(Build, writesTheSameBytesForEveryForm) {
    const std::tuple<std::string, std::u16string, std::u16string> rows[]{
        {"a\nb\n", u"a\nb\n", u"\na\nb\n"},
        {"\uFEFFa", u"a\n", u"\na"},
        {"\r\na\r\r\n\r\n", u"\na\n\n", u"\na\n\n"},
        {"a\rb \t\u00AD\U0001F600", u"a\nb \t\xAD\U0001F600\n", u"\na\nb \t\xAD\U0001F600"},
    };
    const SampleTexts texts;
    for (const auto& [source, agreement, information] : rows) {
        texts.write("eula/LA_en.txt", source);
        texts.write("eula/LI_en.txt", source);
        EXPECT_EQ(texts.build().out, texts.path("set") + ": " + std::to_string(filesOfASet) + " files\n");
        EXPECT_EQ(texts.read("set/LA_en"), utf16(agreement));
        EXPECT_EQ(texts.read("set/LI_en"), utf16(information));
    }
}

TEST(Build, letsOneLanguageStandInForThoseThatAreMissing) {
    const SampleTexts texts;
    for (const char* name : {"LA_cs", "LA_el", "LI_el", "notices", "non_vur_license"}) {
        texts.remove("eula/" + std::string(name) + ".txt");
    }
    const std::string at = texts.path("eula/");
    const Finished without = texts.build(), with = texts.build({"--stand-in", "en"});
    EXPECT_EQ(without.exitCode, 1);
    EXPECT_EQ(without.out + without.err, at + "LA_cs.txt " + at + "LA_el.txt " + at + "LI_el.txt: error: missing\n");
    EXPECT_EQ(with.exitCode, 0);
    EXPECT_EQ(with.out, "LA: en stands in for cs el\nLI: en stands in for el\n" + texts.path("set") + ": " +
                            std::to_string(filesOfASet - 2) + " files\n");
    EXPECT_EQ(texts.read("set/LA_el"), texts.read("set/LA_en"));
    EXPECT_EQ(texts.build({"--langset", "3", "--stand-in", "de"}).out,
              "LA: de stands in for cs\n" + texts.path("set") + ": 26 files\n");
    texts.remove("eula/LA_en.txt");
    EXPECT_EQ(texts.build({"--stand-in", "en"}).err,
              at + "LA_cs.txt " + at + "LA_el.txt " + at + "LA_en.txt: error: missing\n");
}

TEST(Build, refusesSourcesWithErrorsAndNamesFileAndLine) {
    const std::tuple<const char*, std::string, std::string> rows[]{
        {"LA_en.txt", "a\nb\n\xE9t\xE9\n", ":3: error: not UTF-8\n"},
        {"LA_en.txt", {'a', '\n', '\0'}, ":2: error: U+0000: the screen ends here, the copy does not\n"},
        {"notices.txt", "", ": error: empty\n"},
        {"LA_xx.txt", "terms", ": warning: not the name of a text of any set\n"},
        {"la_fr.txt", "terms", ": warning: not the name of a text of any set\n"},
        {"Notices.txt", "terms", ": warning: not the name of a text of any set\n"},
        {"non_vur_license", "terms", ": warning: not the name of a text of any set\n"},
    };
    for (const auto& [file, bytes, error] : rows) {
        const SampleTexts texts;
        texts.write("eula/" + std::string(file), bytes);
        const Finished finished = texts.build();
        EXPECT_EQ(finished.err, texts.path("eula/") + file + error);
        const bool isError = error.find("error") != error.npos;
        EXPECT_EQ(finished.exitCode, isError ? 1 : 0);
        EXPECT_EQ(texts.has("set"), !isError);
    }
}

TEST(Build, replacesNothingButItsOwnSets) {
    const SampleTexts texts;
    fs::create_directory(texts.path("set"));
    EXPECT_EQ(texts.build().exitCode, 0) << "an empty directory";
    texts.write("eula/LA_en.txt", "New terms\n");
    EXPECT_EQ(texts.build().exitCode, 0);
    const std::pair<const char*, std::string> strangers[]{
        {"LA_en", {'\xFF', '\xFE', '\n', '\0'}},
        {"LA_en", utf16(u"a\r\n")},
        {"LI_en", utf16(u"a\n")},
        {"LA_en", "in UTF-8\n"},
        {"mine.txt", utf16(u"my own\n")},
        {"LA_de.orig/x", ""},
    };
    for (const auto& [name, bytes] : strangers) {
        texts.write("set/" + std::string(name), bytes);
        const Finished finished = texts.build();
        EXPECT_EQ(finished.exitCode, 2);
        EXPECT_NE(finished.err.find("which this command has not written"), std::string::npos) << finished.err;
        EXPECT_EQ(texts.read("set/" + std::string(name)), bytes);
        texts.remove("set");
        EXPECT_EQ(texts.build().exitCode, 0);
    }
    texts.link("set/LA_en", "LA_de");
    EXPECT_EQ(texts.build().exitCode, 2);
}

TEST(Build, takesAPathInAnyForm) {
    const SampleTexts texts;
    fs::create_directory(texts.path("real"));
    fs::create_directory_symlink("real", texts.path("link"));
    const fs::path before = fs::current_path();
    fs::current_path(texts.path());
    for (const char* form : {"set", "set/", "./set//", "eula/../set", "link"}) {
        for (int round = 0; round < 2; ++round) EXPECT_EQ(runLicenses({"build", "eula", form}).err, "") << form;
        EXPECT_EQ(namesIn(texts, form).size(), filesOfASet) << form;
        texts.remove("set");
    }
    fs::current_path(before);
    EXPECT_TRUE(fs::is_symlink(texts.path("link")));
    EXPECT_EQ(namesIn(texts, ""), (std::set<std::string>{"eula", "licenses", "link", "real"}));
}

TEST(Build, keepsTheOldSetWhenTheDiskIsFull) {
    const SampleTexts texts;
    ASSERT_EQ(texts.build().exitCode, 0);
    const std::string before = texts.read("set/LA_en");
    texts.write("eula/LA_en.txt", "New terms\n");
    const Finished finished = texts.build({}, fillDisk);
    EXPECT_EQ(finished.exitCode, 2);
    EXPECT_EQ(texts.read("set/LA_en"), before);
    EXPECT_EQ(namesIn(texts, ""), (std::set<std::string>{"eula", "licenses", "set"})) << "and leaves nothing beside it";
}

TEST(Build, leavesTheOldSetOrTheNewOneWhenItIsKilled) {
    const SampleTexts texts;
    int killed = 0;
    for (int round = 0; round <= 60; ++round) {
        // The first text and the last tell their round, so a mixture of two sets would show.
        const std::string mark = "\n" + std::to_string(100 + round) + "\n";
        for (const std::string name : {"LA_cs", "LI_zh_TW"}) {
            texts.write("eula/" + name + ".txt", Sandbox().read(ZEV_SAMPLE_TEXTS "/" + name + ".txt") + mark);
        }
        const Arguments call{ZEV_BUILT "/zev-licenses", "build", texts.path("eula"), texts.path("set")};
        const Arguments after{"-s", "KILL", std::to_string(round / 1000.0)};  // 0 stands for never
        if (run(joined(after, call), {}, "", unprepared, "/usr/bin/timeout").exitCode != 0) ++killed;
        const std::string first = texts.read("set/LA_cs"), last = texts.read("set/LI_zh_TW");
        ASSERT_EQ(namesIn(texts, "set").size(), filesOfASet);
        ASSERT_EQ(first.substr(first.size() - 10), last.substr(last.size() - 10)) << round;
    }
    EXPECT_GT(killed, 0);
    EXPECT_EQ(texts.build().exitCode, 0);
    EXPECT_EQ(namesIn(texts, ""), (std::set<std::string>{"eula", "licenses", "set"})) << "the next run clears up";
}

}  // namespace
}  // namespace zev::test
