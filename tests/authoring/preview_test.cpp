#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <regex>

#include "authoring/support.h"

namespace zev::test {
namespace {

/// The texts in a preview, without the lines that describe them: the languages, then the terms of other parties.
std::vector<std::string> screensIn(const std::string& preview) {
    static const std::regex about("(^|\n)(== [^\n]*\n)+"), margins("\n(     |   > )");
    std::vector<std::string> screens;
    std::smatch match;
    for (std::string rest = preview; std::regex_search(rest, match, about);) {
        rest = "\n" + match.suffix().str();
        const std::string screen = rest.substr(0, rest.find("\n== "));
        screens.push_back(std::regex_replace(screen, margins, "\n").substr(1));
    }
    return screens;
}

/// A preview without the lines that identify the bytes of files.
std::string withoutSums(const std::string& preview) {
    return std::regex_replace(preview, std::regex("== [^\n]*: (fingerprint|SHA-256) [0-9a-f]{64}\n"), "");
}

TEST(Preview, showsWhatZevShows) {
    const SampleSet set;
    const std::string allPages(40, '\n');
    const std::regex echoes("\\[INPUT\\] ==> q?");
    set.write("set/non_vur_license", set.read("set/LA_fr"));  // accents take two columns in Japanese
    for (const LanguageEntry& language : languages()) {
        const std::string code = language.code;
        if (code == "zh_TW") continue;
        for (const std::string width : {"40", "80", "132"}) {
            SCOPED_TRACE(code + " at " + width);
            const auto shown = [&](const std::string& answers) {
                const Finished zev =
                    run({"-l", set.path("set"), "-s", set.path("status")},
                        {{"LC_ALL", code + ".UTF-8"}, {"COLUMNS", width}, {"LINES", "24"}}, answers + "2\n2\n");
                EXPECT_EQ(zev.exitCode, 3);
                return std::regex_replace(zev.out, echoes, "");
            };
            const Finished preview =
                runLicenses({"preview", set.path("set"), "--lang", code, "--width", width, "--pages-of", "24"});
            ASSERT_EQ(preview.exitCode, 0);
            const auto screens = screensIn(preview.out);
            ASSERT_EQ(screens.size(), 2U);
            ASSERT_GT(screens[0].size(), 1000U);
            ASSERT_EQ(shown(allPages).substr(0, screens[0].size()), screens[0]);
            ASSERT_NE(shown("4\n" + allPages + "q\n").find("\n" + screens[1]), std::string::npos);
        }
    }
}

TEST(Preview, countsAndMarksWhatDoesNotFit) {
    const SampleSet set;
    const auto preview = [&](const std::string& language, const Arguments& options) {
        Finished finished = runLicenses(joined({"preview", set.path("set"), "--lang", language}, options));
        finished.out = withoutSums(finished.out);
        return finished;
    };
    set.remove("set/non_vur_license");
    set.write("set/LA_it", utf16(u"Città\n日本 abcdef ghi\n"));
    set.write("set/LI_it", utf16(u"\nFine\n"));
    EXPECT_EQ(preview("it", {"--width", "12", "--code-page", "KOI8-R"}).out,
              "== it, 12 columns, KOI8-R: 5 lines, 3 characters lost, 0 lines too wide\n"
              "     Città\n     日本 abcdef \n     ghi\n\n     Fine\n");
    EXPECT_EQ(preview("it", {"--width", "11"}).out, "== it, 11 columns: 5 lines, 1 line too wide\n"
                                                    "     Città\n   > 日本 abcdef \n     ghi\n\n     Fine\n");
    set.write("set/non_vur_license", utf16(u"Öö äü öä\n"));
    const std::string terms = preview("zh_TW,de,ja", {"--width", "10"}).out;
    EXPECT_TRUE(terms.ends_with("== non_vur_license in de, 10 columns: 1 line, 0 lines too wide\n     Öö äü öä\n"
                                "== non_vur_license in ja, zh_TW, 10 columns: 3 lines, 0 lines too wide\n"
                                "     Öö \n     äü \n     öä\n"))
        << terms;
    set.remove("set/LA_it");
    set.remove("set/non_vur_license");
    const Finished missing = preview("it", {});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.out, "== it: zev cannot show it; zev-licenses check says why\n");
}

TEST(Preview, tiesEveryPartToTheBytesOfItsFiles) {
    const SampleSet set;
    const auto digitsOf = [](const char* program, const Arguments& arguments) {
        return run(arguments, {}, "", unprepared, program).out.substr(0, 64);
    };
    const std::string agreement = digitsOf("/usr/bin/sha256sum", {set.path("set/LA_de")});
    const std::string terms = digitsOf("/usr/bin/sha256sum", {set.path("set/non_vur_license")});
    const std::string fingerprint = digitsOf(ZEV_BUILT "/zev-ask", {"--fingerprint", "-l", set.path("set")});
    const std::string text = runLicenses({"preview", set.path("set"), "--lang", "de,fr"}).out;
    const Arguments toPage{"preview", set.path("set"), "--lang", "de,fr", "--html", set.path("page")};
    ASSERT_EQ(runLicenses(toPage).exitCode, 0);
    const std::string page = set.read("page");
    const auto count = [](const std::string& where, const std::string& what) {
        std::size_t times = 0;
        for (std::size_t at = 0; (at = where.find(what, at)) != where.npos; ++at) ++times;
        return times;
    };
    ASSERT_EQ(fingerprint.size(), 64U);
    const std::string checked = runLicenses({"check", set.path("set")}).out;
    EXPECT_EQ(count(checked, "\n" + agreement + "  LA_de\n"), 1U);
    EXPECT_EQ(count(checked, "\n" + set.path("set") + ": fingerprint " + fingerprint + "\n"), 1U);
    const auto report = nlohmann::json::parse(runLicenses({"check", set.path("set"), "--json"}).out);
    EXPECT_EQ(report["sha256"]["LA_de"], agreement);
    EXPECT_EQ(report["fingerprint"], fingerprint);
    EXPECT_TRUE(text.starts_with("== " + set.path("set") + ": fingerprint " + fingerprint + "\n"));
    EXPECT_EQ(count(text, "\n== LA_de: SHA-256 " + agreement + "\n"), 1U);
    EXPECT_EQ(count(text, "\n== non_vur_license: SHA-256 " + terms + "\n"), 1U);
    EXPECT_EQ(count(page, agreement), 3U) << "its part, above the signature, the list of all files";
    EXPECT_EQ(count(page, terms), 3U);
    EXPECT_EQ(count(page, "<dd>" + fingerprint), 8U) << "head, three parts, three signatures, the list";
    EXPECT_EQ(count(page, "content: \""), 6U) << "a marker, an edge, numbers; margins of sheets are escaped";
    EXPECT_EQ(count(page, "German\\20 \\28 de\\29 \\2c \\20 fingerprint\\20 " + fingerprint.substr(0, 16) + "\""), 1U);
    EXPECT_EQ(runLicenses(toPage).exitCode, 0);
    EXPECT_EQ(set.read("page"), page) << "the same for the same files";
}

TEST(Preview, writesOnePageThatRunsAndFetchesNothing) {
    const SampleSet set;
    set.write("set/LA_en",
              utf16(u"<script>alert(\"1\") & more</script>\n\x1B\xE9\n" + std::u16string(50, u'日') + u"\n"));
    set.write("set/<b>\n", "");
    set.write("set/LA_ja", utf16(u"第1条 x 契約\n終"));
    set.write("set/LI_ja", utf16(u"わり\n"));
    std::u16string words;
    while (words.size() < 150) words += u"wort ";
    set.write("set/LA_it", utf16(words));
    set.write("set/LI_it", utf16(u"informazioni\n"));
    EXPECT_EQ(runLicenses({"preview", set.path("set"), "--html", set.path("page")}).exitCode, 0);
    const std::string page = set.read("page");
    const auto has = [&](const std::string& text) { return page.find(text) != page.npos; };
    for (const auto& [code, englishName] : languages()) {
        for (const char* suffix : {"", "-40", "-80", "-132"}) {
            const std::string id = std::string(code) + suffix;
            EXPECT_TRUE(has(" id=\"" + id + "\"") && has(" href=\"#" + id + "\"")) << id;
        }
    }
    for (const char* shown :
         {"&lt;script&gt;alert(&quot;1&quot;) &amp; more&lt;/script&gt;", "<i title=\"U+001B\">\u241B</i>",
          "<mark title=\"not in US-ASCII\">\xC3\xA9</mark>",
          "<u><mark title=\"not in US-ASCII\"><b style=\"--n:19;--c:78\">日日",  // 39 counted, 78 taken
          "<b style=\"--n:1;--c:2\">第</b>1<b style=\"--n:1;--c:5\">条</b> x <b style",
          ">LA_en ends here, and LI_en begins<", ">LA_it ends here, and LI_it begins<",
          ">LI_ja begins within the line above, because LA_ja ends without a line feed<",
          "&lt;b&gt;\uFFFD: warning: zev never reads a file of this name"}) {
        EXPECT_TRUE(has(shown)) << shown;
    }
    for (const char* active :
         {"<script", "src=", "href=\"http", "url(", "@import", "<b>", "inline-block", "tabindex"}) {
        EXPECT_FALSE(has(active)) << active;
    }
    const std::string hostile = "se\"t<style><script>";
    std::filesystem::rename(set.path("set"), set.path(hostile));
    const Arguments options{"preview", set.path(hostile), "--lang", "de", "--html", set.path("page")};
    EXPECT_EQ(runLicenses(joined(options, {"--code-page", "koi8-r,\"onmouseover=<x"})).exitCode, 0);
    const std::string german = set.read("page");
    EXPECT_NE(german.find("title=\"not in koi8-r,&quot;onmouseover=&lt;x\""), german.npos);
    EXPECT_EQ(german.find("<script"), german.npos);
    EXPECT_EQ(german.find("\"onmouseover"), german.npos);
    EXPECT_EQ(german.find("LA_en:"), german.npos) << "findings are those of the languages asked for";
    EXPECT_EQ(runLicenses(options, fillDisk).exitCode, 2);
    EXPECT_FALSE(set.has("page")) << "a page that is cut short is removed";
}

TEST(CommandLineOfLicenses, keepsResultsAndMessagesApart) {
    const SampleSet set;
    const std::string name = "zev-licenses: ", directory = set.path("set"), noLanguage = ": no language of the set: ";
    const std::string help = "; see zev-licenses --help.\n";
    const std::string empty = ": the value is empty, perhaps because a variable is not set" + help;
    const std::tuple<Arguments, int, std::string, std::string> rows[]{
        // Arguments, exit status, and how standard output and standard error begin.
        {{"--version"}, 0, "v", ""},
        {{"--help"}, 0, "Builds, checks and shows licence directories for zev.\n", ""},
        {{"check", "--help"}, 0, "Find what is wrong with a licence directory\n", ""},
        {{}, 2, "", name + "A subcommand is required" + help},
        {{"bogus"}, 2, "", name + "The following argument was not expected: bogus" + help},
        {{"check"}, 2, "", name + "DIR is required" + help},
        {{"check", directory + "x"}, 2, "", name + directory + "x: No such file or directory\n"},
        {{"check", directory, "--stand-in", "xx"}, 2, "", name + "--stand-in" + noLanguage + "xx" + help},
        {{"check", directory, "--langset", "3", "--stand-in", "el"}, 2, "", name + "--stand-in" + noLanguage + "el"},
        {{"preview", directory, "--lang", "it,xx"}, 2, "", name + "--lang" + noLanguage + "xx" + help},
        {{"preview", directory, "--lang", ""}, 2, "", name + "--lang" + empty},
        {{"preview", directory, "--html", ""}, 2, "", name + "--html" + empty},
        {{"preview", directory, "--code-page", "KOI9"}, 2, "", name + "--code-page: unknown code page: KOI9" + help},
        {{"preview", directory, "--width", "0"}, 2, "", name + "--width: "},
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
