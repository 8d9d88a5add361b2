#include <gtest/gtest.h>

#include <sstream>

#include "authoring/support.h"

namespace zev::test {
namespace {

/// What zev shows, without the word before the echo of each answer.
std::string withoutEchoes(std::string shown) {
    const std::string echo = "[INPUT] ==> ";
    for (std::size_t at; (at = shown.find(echo)) != shown.npos;) shown.erase(at, echo.size());
    return shown;
}

/// The screens of a text preview: without the figures, and without the five columns before each line.
std::string screensOf(const std::string& preview) {
    std::istringstream lines(preview);
    std::string line, screens;
    std::getline(lines, line);
    while (std::getline(lines, line)) screens += (line.empty() ? "" : line.substr(5)) + "\n";
    return screens;
}

TEST(Preview, showsWhatZevShows) {
    const SampleSet set;
    const std::string allPages(300, '\n');
    for (const auto& [code, englishName] : languages()) {
        if (std::string(code) == "zh_TW") continue;
        for (const std::string width : {"40", "80", "132"}) {
            SCOPED_TRACE(code + (" at " + width));
            const Finished zev = run({"-l", set.path("set"), "-s", set.path("status")},
                                     {{"LC_ALL", code + std::string(".UTF-8")}, {"COLUMNS", width}, {"LINES", "24"}},
                                     allPages + "2\n2\n");
            ASSERT_EQ(zev.exitCode, 3);
            const Outcome preview =
                runLicenses({"preview", set.path("set"), "--lang", code, "--width", width, "--pages-of", "24"});
            ASSERT_EQ(preview.status, 0);
            const std::string screens = screensOf(preview.out);
            ASSERT_GT(screens.size(), 1000U);
            ASSERT_EQ(withoutEchoes(zev.out).substr(0, screens.size()), screens);
        }
    }
}

TEST(Preview, countsAndMarksWhatDoesNotFit) {
    const SampleSet set;
    set.write("set/LA_it", bigEndian(u"Città\n日本 abcdef ghi\n"));
    set.write("set/LI_it", bigEndian(u"\nFine\n"));
    EXPECT_EQ(runLicenses({"preview", set.path("set"), "--lang", "it", "--width", "12", "--code-page", "KOI8-R"}).out,
              "== it, 12 columns, KOI8-R: 5 lines, 3 characters lost, 0 lines too wide\n"
              "     Città\n     日本 abcdef \n     ghi\n\n     Fine\n");
    const Outcome narrow = runLicenses({"preview", set.path("set"), "--lang", "it", "--width", "11"});
    EXPECT_EQ(narrow.out, "== it, 11 columns: 5 lines, 1 line too wide\n"
                          "     Città\n   > 日本 abcdef \n     ghi\n\n     Fine\n");
    EXPECT_EQ(runLicenses({"preview", set.path("set"), "--lang", "zh_TW"}).out.substr(0, 9), "== zh_TW,");
    set.remove("set/LA_it");
    const Outcome missing = runLicenses({"preview", set.path("set"), "--lang", "it"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.out, "== it: zev cannot show it; zev-licenses check says why\n");
}

TEST(Preview, writesOnePageThatRunsAndFetchesNothing) {
    const SampleSet set;
    set.write("set/LA_en",
              bigEndian(u"<script>alert(\"1\") & more</script>\n\x1B\xE9\n" + std::u16string(50, u'日') + u"\n"));
    set.write("set/<b>\n", "");
    const Outcome outcome = runLicenses({"preview", set.path("set"), "--html", set.path("page")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string page = set.read("page");
    const auto has = [&](const std::string& text) { return page.find(text) != page.npos; };
    for (const auto& [code, englishName] : languages()) {
        for (const char* suffix : {"", "-40", "-80", "-132"}) {
            const std::string id = std::string(code) + suffix;
            EXPECT_TRUE(has(" id=\"" + id + "\"") && has(" href=\"#" + id + "\"")) << id;
        }
    }
    EXPECT_TRUE(has("&lt;script&gt;alert(&quot;1&quot;) &amp; more&lt;/script&gt;"));
    EXPECT_TRUE(has("<i title=\"U+001B\">\u241B</i>"));
    EXPECT_TRUE(has("<mark title=\"not in US-ASCII\">\xC3\xA9</mark>"));
    EXPECT_TRUE(has("<u><mark title=\"not in US-ASCII\"><b style=\"--n:19\">日日"))
        << "39 columns are counted, 78 taken";
    EXPECT_TRUE(has("&lt;b&gt;\uFFFD: warning: zev never reads a file of this name"));
    for (const char* active : {"<script", "src=", "href=\"http", "url(", "@import", "<b>"})
        EXPECT_FALSE(has(active)) << active;
}

TEST(CommandLineOfLicenses, keepsResultsAndMessagesApart) {
    const SampleSet set;
    const struct {
        Arguments arguments;
        int status;
        std::string out, err;  ///< beginnings
    } rows[]{
        {{"--version"}, 0, "v", ""},
        {{"--help"}, 0, "Builds, checks and shows licence directories for zev.\n", ""},
        {{"check", "--help"}, 0, "Find what is wrong with a licence directory\n", ""},
        {{}, 2, "", "A subcommand is required\n"},
        {{"check"}, 2, "", "DIR is required\n"},
        {{"check", set.path("nowhere")},
         2,
         "",
         "zev-licenses: " + set.path("nowhere") + ": No such file or directory\n"},
        {{"check", set.path("set"), "--stand-in", "xx"}, 2, "", "--stand-in: no language of the set: xx\n"},
        {{"check", set.path("set"), "--langset", "3", "--stand-in", "el"},
         2,
         "",
         "--stand-in: no language of the set: el\n"},
        {{"preview", set.path("set"), "--lang", "it,nl"}, 2, "", "--lang: no language of the set: nl\n"},
        {{"preview", set.path("set"), "--code-page", "KOI9"}, 2, "", "--code-page: unknown code page: KOI9\n"},
        {{"preview", set.path("set"), "--width", "0"}, 2, "", "--width: "},
        {{"preview", set.path("set/LA_en")}, 2, "", "zev-licenses: " + set.path("set/LA_en") + ": Not a directory\n"},
        {{"preview", set.path("set"), "--html", set.path("no/page")},
         2,
         "",
         "zev-licenses: " + set.path("no/page") + ": "},
    };
    for (const auto& [arguments, status, out, err] : rows) {
        const Outcome outcome = runLicenses(arguments);
        EXPECT_EQ(outcome.status, status) << outcome.out;
        EXPECT_TRUE(outcome.out.starts_with(out) && outcome.out.empty() == out.empty()) << outcome.out;
        EXPECT_TRUE(outcome.err.starts_with(err) && outcome.err.empty() == err.empty()) << outcome.err;
    }
}

}  // namespace
}  // namespace zev::test
