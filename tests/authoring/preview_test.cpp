#include <gtest/gtest.h>

#include <regex>

#include "authoring/support.h"

namespace zev::test {
namespace {

TEST(Preview, showsWhatZevShows) {
    const SampleSet set;
    const std::string allPages(300, '\n');
    const std::regex echoes("\\[INPUT\\] ==> "), columnsBeforeLines("\n(     |   > )");
    for (const auto& [code, englishName] : languages()) {
        if (std::string(code) == "zh_TW") continue;
        for (const std::string width : {"40", "80", "132"}) {
            SCOPED_TRACE(code + (" at " + width));
            const Finished zev = run({"-l", set.path("set"), "-s", set.path("status")},
                                     {{"LC_ALL", code + std::string(".UTF-8")}, {"COLUMNS", width}, {"LINES", "24"}},
                                     allPages + "2\n2\n");
            ASSERT_EQ(zev.exitCode, 3);
            const Finished preview =
                runLicenses({"preview", set.path("set"), "--lang", code, "--width", width, "--pages-of", "24"});
            ASSERT_EQ(preview.exitCode, 0);
            const std::string lines = std::regex_replace(preview.out, columnsBeforeLines, "\n");
            const std::string screens = lines.substr(lines.find('\n') + 1);
            ASSERT_GT(screens.size(), 1000U);
            ASSERT_EQ(std::regex_replace(zev.out, echoes, "").substr(0, screens.size()), screens);
        }
    }
}

TEST(Preview, countsAndMarksWhatDoesNotFit) {
    const SampleSet set;
    const auto preview = [&](const std::string& language, const Arguments& options) {
        return runLicenses(joined({"preview", set.path("set"), "--lang", language}, options));
    };
    set.write("set/LA_it", utf16(u"Città\n日本 abcdef ghi\n"));
    set.write("set/LI_it", utf16(u"\nFine\n"));
    EXPECT_EQ(preview("it", {"--width", "12", "--code-page", "KOI8-R"}).out,
              "== it, 12 columns, KOI8-R: 5 lines, 3 characters lost, 0 lines too wide\n"
              "     Città\n     日本 abcdef \n     ghi\n\n     Fine\n");
    EXPECT_EQ(preview("it", {"--width", "11"}).out, "== it, 11 columns: 5 lines, 1 line too wide\n"
                                                    "     Città\n   > 日本 abcdef \n     ghi\n\n     Fine\n");
    EXPECT_TRUE(preview("zh_TW", {}).out.starts_with("== zh_TW,"));
    set.remove("set/LA_it");
    const Finished missing = preview("it", {});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.out, "== it: zev cannot show it; zev-licenses check says why\n");
}

TEST(Preview, writesOnePageThatRunsAndFetchesNothing) {
    const SampleSet set;
    set.write("set/LA_en",
              utf16(u"<script>alert(\"1\") & more</script>\n\x1B\xE9\n" + std::u16string(50, u'日') + u"\n"));
    set.write("set/<b>\n", "");
    EXPECT_EQ(runLicenses({"preview", set.path("set"), "--html", set.path("page")}).exitCode, 0);
    const std::string page = set.read("page");
    const auto has = [&](const std::string& text) { return page.find(text) != page.npos; };
    for (const auto& [code, englishName] : languages()) {
        for (const char* suffix : {"", "-40", "-80", "-132"}) {
            const std::string id = std::string(code) + suffix;
            EXPECT_TRUE(has(" id=\"" + id + "\"") && has(" href=\"#" + id + "\"")) << id;
        }
    }
    for (const char* shown : {"&lt;script&gt;alert(&quot;1&quot;) &amp; more&lt;/script&gt;",
                              "<i title=\"U+001B\">\u241B</i>", "<mark title=\"not in US-ASCII\">\xC3\xA9</mark>",
                              "<u><mark title=\"not in US-ASCII\"><b style=\"--n:19\">日日",  // 39 counted, 78 taken
                              "&lt;b&gt;\uFFFD: warning: zev never reads a file of this name"}) {
        EXPECT_TRUE(has(shown)) << shown;
    }
    for (const char* active : {"<script", "src=", "href=\"http", "url(", "@import", "<b>"}) {
        EXPECT_FALSE(has(active)) << active;
    }
    EXPECT_EQ(runLicenses({"preview", set.path("set"), "--html", set.path("page")}, fillDisk).exitCode, 2);
    EXPECT_FALSE(set.has("page")) << "which would be cut";
}

TEST(CommandLineOfLicenses, keepsResultsAndMessagesApart) {
    const SampleSet set;
    const std::string name = "zev-licenses: ", directory = set.path("set"), noLanguage = ": no language of the set: ";
    const std::tuple<Arguments, int, std::string, std::string> rows[]{
        // The beginnings of what is written to the one and to the other.
        {{"--version"}, 0, "v", ""},
        {{"--help"}, 0, "Builds, checks and shows licence directories for zev.\n", ""},
        {{"check", "--help"}, 0, "Find what is wrong with a licence directory\n", ""},
        {{}, 2, "", "A subcommand is required\n"},
        {{"bogus"}, 2, "", "The following argument was not expected: bogus\n"},
        {{"check"}, 2, "", "DIR is required\n"},
        {{"check", directory + "x"}, 2, "", name + directory + "x: No such file or directory\n"},
        {{"check", directory, "--stand-in", "xx"}, 2, "", "--stand-in" + noLanguage + "xx\n"},
        {{"check", directory, "--langset", "3", "--stand-in", "el"}, 2, "", "--stand-in" + noLanguage + "el\n"},
        {{"preview", directory, "--lang", "it,xx"}, 2, "", "--lang" + noLanguage + "xx\n"},
        {{"preview", directory, "--lang", ""}, 2, "", "--lang: the value is empty; is a variable not set?\n"},
        {{"preview", directory, "--html", ""}, 2, "", "--html: the value is empty; is a variable not set?\n"},
        {{"preview", directory, "--code-page", "KOI9"}, 2, "", "--code-page: unknown code page: KOI9\n"},
        {{"preview", directory, "--width", "0"}, 2, "", "--width: "},
        {{"preview", directory + "/LA_en"}, 2, "", name + directory + "/LA_en: Not a directory\n"},
        {{"preview", directory, "--html", directory + "x/page"}, 2, "", name + directory + "x/page: "},
        {{"build", directory + "x", "out"}, 2, "", name + directory + "x: No such file or directory\n"},
        {{"build", ZEV_SAMPLE_TEXTS, directory + "x/out"}, 2, "", name + directory + "x: cannot be opened: No such"},
        {{"build", ZEV_SAMPLE_TEXTS, directory + "/LA_en"}, 2, "", name + directory + "/LA_en: Not a directory\n"},
    };
    for (const auto& [arguments, status, out, err] : rows) {
        const Finished finished = runLicenses(arguments);
        EXPECT_EQ(finished.exitCode, status) << finished.out;
        EXPECT_TRUE(finished.out.starts_with(out) && finished.out.empty() == out.empty()) << finished.out;
        EXPECT_TRUE(finished.err.starts_with(err) && finished.err.empty() == err.empty()) << finished.err;
    }
}

}  // namespace
}  // namespace zev::test
