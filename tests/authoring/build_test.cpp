#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unicode/unistr.h>

#include <nlohmann/json.hpp>
#include <set>

#include "authoring/support.h"

namespace zev::test {
namespace {

namespace fs = std::filesystem;

/// The names in a directory of the sandbox, with those of hidden files.
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
        return runLicenses(joined({"build", path("eula/"), path("set")}, options), prepare);
    }
};

TEST(Build, writesTheSameBytesForEveryForm) {
    const std::tuple<std::string, std::u16string, std::u16string> rows[]{
        {"a\nb\n", u"a\nb\n", u"\na\nb\n"},
        {"\uFEFFa", u"a\n", u"\na"},
        {"\r\na\r\r\n\r\n", u"\na\n\n", u"\na\n\n"},
        {"a\r\rb\r", u"a\n\nb\n", u"\na\n\nb\n"},
        {"a\rb \t\u00AD\U0001F600", u"a\nb \t\xAD\U0001F600\n", u"\na\nb \t\xAD\U0001F600"},
    };
    const SampleTexts texts;
    for (const auto& [source, agreement, information] : rows) {
        texts.write("eula/LA_en.txt", source);
        texts.write("eula/LI_en.txt", source);
        EXPECT_EQ(texts.build().exitCode, 0);
        EXPECT_EQ(namesIn(texts, "set").size(), filesOfASet);
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
    EXPECT_EQ(without.out + without.err, at + "LA_cs.txt LA_el.txt LI_el.txt: error: missing [missing]\n" +
                                             texts.path("set") + ": not written: 3 errors, 0 warnings\n");
    EXPECT_EQ(with.exitCode, 0);
    EXPECT_EQ(with.out, "LA: en stands in for cs el\nLI: en stands in for el\n" + texts.path("set") + ": " +
                            std::to_string(filesOfASet - 2) + " files\n");
    EXPECT_EQ(texts.read("set/LA_el"), texts.read("set/LA_en"));
    EXPECT_EQ(texts.build({"--langset", "3", "--stand-in", "de"}).out,
              "LA: de stands in for cs\n" + texts.path("set") + ": 26 files\n");
    texts.link("eula/notices.txt", "nowhere");
    EXPECT_NE(texts.build({"--stand-in", "en"}).err.find(at + "notices.txt: error: a link that leads nowhere"),
              std::string::npos);
    texts.remove("eula/notices.txt");
    texts.remove("eula/LA_en.txt");
    const std::string err = texts.build({"--stand-in", "en"}).err;
    EXPECT_EQ(err.substr(0, err.find('\n')), at + "LA_en.txt: error: missing; it is to stand in for cs el [missing]");
}

TEST(Build, makesASetOfOneText) {
    const SampleTexts texts;
    fs::rename(texts.path("eula/LA_de.txt"), texts.path("EULA"));
    const auto build = [&](const std::string& sources, const Arguments& options) {
        return runLicenses(joined({"build", texts.path(sources), texts.path("set")}, options));
    };
    const Finished one = build("EULA", {"--lang", "de", "--strict"});
    EXPECT_EQ(one.exitCode, 0) << one.err;
    EXPECT_EQ(texts.read("set/LA_ja"), texts.read("set/LA_de"));
    EXPECT_EQ(texts.read("set/LI_de"), utf16(u"\n"));
    EXPECT_EQ(runLicenses({"check", texts.path("set"), "--strict", "--stand-in", "de"}).exitCode, 0);
    // From a directory without licence information, and with empty information in one language.
    for (const auto& [code, englishName] : languages()) texts.remove("eula/LI_" + std::string(code) + ".txt");
    EXPECT_EQ(texts.build({"--strict", "--stand-in", "en"}).exitCode, 0);
    texts.write("eula/LI_en.txt", "");
    EXPECT_EQ(texts.build({"--strict", "--stand-in", "en"}).exitCode, 0);
    EXPECT_EQ(texts.read("set/LI_fr"), utf16(u"\n"));
    texts.write("dir/EULA.txt", "terms");
    texts.write("dir/Licence.md", "terms");
    texts.write("dir/logo.png", "\x89PNG\x1A");
    texts.write("some/LA_el.txt", "terms");
    texts.write("some/LI_de.txt", "terms");
    texts.write("some/Lizenz", "K\xFCrzung");
    const std::string noLanguage = ": one text; give its language", noText = ": a directory; --lang is for one text";
    const std::string noAgreement = ": error: no agreement LA_xx.txt of a language of the set, only ";
    const std::tuple<const char*, Arguments, int, std::string> refused[]{
        {"EULA", {}, 2, noLanguage},
        {"eula", {"--lang", "de"}, 2, noText},
        {"nothing", {"--lang", "de"}, 2, ": No such file or directory"},
        {"EULA", {"--lang", "en", "--stand-in", "de"}, 2, "--stand-in excludes --lang"},
        {"EULA", {"--lang", "xx"}, 2, "--lang: no language of the set: xx"},
        {"eula/LA_ja.txt", {"--lang", "ja", "--strict"}, 1, ":5:1: warning: in LA_cs, wide character (x"},
        {"dir", {"--stand-in", "en"}, 1, noAgreement + "EULA.txt, Licence.md; if one of them"},
        {"some", {"--langset", "3"}, 1, noAgreement + "LA_el.txt, LI_de.txt, Lizenz; if one of them"},
    };
    for (const auto& [sources, options, status, message] : refused) {
        const Finished finished = build(sources, options);
        EXPECT_EQ(finished.exitCode, status);
        EXPECT_NE(finished.err.find(message), std::string::npos) << finished.err;
    }
}

TEST(Build, namesFileAndPlaceOfWhatItFinds) {
    const auto encoded = [](const char* codePage) {
        const auto text = icu::UnicodeString::fromUTF8("Kündigung\n");
        std::string bytes(100, '\0');
        bytes.resize(static_cast<std::size_t>(text.extract(0, text.length(), bytes.data(), codePage)));
        return bytes;
    };
    const std::string saveIt = "; save it as UTF-8 [encoding]\n";
    const std::string name = ": warning: a file of this name belongs to no set and is left out [name]\n";
    const std::tuple<const char*, std::string, std::string> rows[]{
        {"LA_de.txt", "a\r\nb\rbc\xE9t\xE9\n",
         ":3:3: error: not UTF-8 but an 8-bit code page, or a text that was damaged" + saveIt},
        {"LI_de.txt", encoded("UTF-16"), ":1:1: error: not UTF-8 but UTF-16, as some editors save a text" + saveIt},
        {"LA_en.txt", encoded("UTF-16LE"), ":1:3: error: not UTF-8 but UTF-16 without a byte order mark" + saveIt},
        {"LA_en.txt", utf16(u"in English\n").substr(2),
         ": error: not UTF-8 but UTF-16, as some editors save a text" + saveIt},
        {"notices.txt", {'\xFF', '\xFE', 0, 0, 'a', 0, 0, 0}, ":1:1: error: not UTF-8 but UTF-32" + saveIt},
        {"LA_en.txt", {0, 0, 0, 'a', 0, 0, 0, '\n'}, ": error: not UTF-8 but UTF-32" + saveIt},
        {"LA_en.txt", {'a', '\n', '\0'}, ":2:1: error: U+0000: what is shown ends here, the copy does not [nul]\n"},
        {"LI_en.txt", "a\r\nb\tc", ":2:2: warning: tab: counted as one column, shown as up to eight [tab]\n"},
        {"LI_en.txt", "a\n" + std::string(90, 'x'),
         ":2:1: warning: a word is too wide for a line of 80 columns: it is cut, or its line overflows [wide-word]\n"},
        {"notices.txt", "", ": error: empty [empty]\n"},
        {"LA_xx.txt", "terms", name},
        {"la_fr.txt", "terms", name},
        {"License-de.txt", "terms", name},
        {"non_vur_license", "terms", name},
        {".LA_de.txt.swp", "terms", ""},
        {"README.md", "terms", ""},
        {"old/LA_de.txt", "terms", ""},
    };
    for (const auto& [file, bytes, finding] : rows) {
        const SampleTexts texts;
        texts.write("eula/" + std::string(file), bytes);
        const Finished finished = texts.build();
        EXPECT_NE(finished.err.find(finding.empty() ? "" : texts.path("eula/") + file + finding), std::string::npos)
            << finished.err;
        EXPECT_EQ(finished.err.empty(), finding.empty()) << finished.err;
        const bool isError = finding.find("error") != finding.npos;
        EXPECT_EQ(finished.exitCode, isError ? 1 : 0);
        EXPECT_EQ(texts.has("set"), !isError);
    }
}

TEST(Build, isStrictAboutWarningsThatNobodyAccepted) {
    const SampleTexts texts;
    ASSERT_EQ(texts.build().exitCode, 0);
    texts.write("eula/LA_IT.txt", "in the wrong case");
    texts.write("eula/LI_de.txt", texts.read("eula/LI_de.txt") + "\a\n");
    const std::string before = texts.read("set/LI_de");
    const std::string set = "set: " + std::to_string(filesOfASet) + " files; ";
    const std::tuple<Arguments, int, std::string> rows[]{
        {{"--strict"}, 1, "set: not written: 0 errors, 2 warnings\n"},
        {{"--strict", "--accept", "name"}, 1, "set: not written: 0 errors, 1 warning, 1 accepted\n"},
        {{"--strict", "--accept", "name", "--accept", "control:LI_en"}, 1, "0 errors, 2 warnings, 1 accepted\n"},
        {{"--strict", "--accept", "name", "--accept", "control:LI_de"}, 0, set + "0 errors, 0 warnings, 2 accepted\n"},
        {{}, 0, set + "0 errors, 2 warnings\n"},
    };
    for (const auto& [options, status, summary] : rows) {
        const Finished finished = texts.build(options);
        EXPECT_EQ(finished.exitCode, status);
        EXPECT_TRUE((finished.out + finished.err).find(summary) != std::string::npos) << finished.err << finished.out;
        EXPECT_EQ(texts.read("set/LI_de") == before, status == 1);
    }
    const auto report = nlohmann::json::parse(texts.build({"--json", "--strict"}).out);
    EXPECT_EQ(report["written"], false);
    EXPECT_EQ(report["findings"][1]["path"], texts.path("eula/LI_de.txt"));
    EXPECT_EQ(report["findings"][1]["column"], 1);
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
    fs::current_path(texts.path("real"));
    EXPECT_EQ(runLicenses({"build", "../eula", "."}).err,
              "zev-licenses: .: not replaced: it is the working directory; run this command elsewhere\n");
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

TEST(Build, keepsModeAndGroup) {
    const SampleTexts texts;
    ASSERT_EQ(texts.build().exitCode, 0);
    const gid_t group = geteuid() == 0 ? 4711 : getegid();
    ASSERT_EQ(chown(texts.path("set").c_str(), geteuid(), group), 0);
    for (const mode_t mode : {0500U, 02750U}) {
        ASSERT_EQ(chmod(texts.path("set").c_str(), mode), 0);
        ASSERT_EQ(texts.build().err, "");
        struct stat status {};
        ASSERT_EQ(stat(texts.path("set").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, mode);
        EXPECT_EQ(status.st_gid, group);
    }
    EXPECT_EQ(namesIn(texts, ""), (std::set<std::string>{"eula", "licenses", "set"}));
}

TEST(Build, waitsForNobodyForEver) {
    const SampleTexts texts;
    const auto lock = [&](const std::string& name) {
        const int directory = open(texts.path(name).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        EXPECT_EQ(flock(directory, LOCK_EX), 0);
        return directory;
    };
    for (const char* name : {"dead", "alive"})
        fs::create_directory(texts.path(".set.zev-licenses." + std::string(name)));
    const int alive = lock(".set.zev-licenses.alive"), parent = lock("");
    EXPECT_EQ(texts.build().exitCode, 0);
    EXPECT_TRUE(texts.has(".set.zev-licenses.dead")) << "without the lock, leftovers stay";
    close(parent);
    EXPECT_EQ(texts.build().exitCode, 0);
    EXPECT_FALSE(texts.has(".set.zev-licenses.dead"));
    EXPECT_TRUE(texts.has(".set.zev-licenses.alive")) << "another run works on it";
    close(alive);
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
