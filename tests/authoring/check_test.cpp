#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "app/run_options.h"
#include "authoring/language_profile.h"
#include "authoring/set_files.h"
#include "authoring/support.h"
#include "authoring/text_encoding.h"

namespace zev::test {
namespace {

using namespace std::string_literals;

/// A line at the end of a text of the set, in its last paragraph.
std::string withLine(const Sandbox& set, const std::string& name, const std::u16string& line) {
    const std::string mark = utf16(u"");
    return set.read("set/" + name) + utf16(line + u"\n").substr(mark.size());
}

std::u16string repeated(const std::u16string& text, int count) {
    std::u16string all;
    while (count-- > 0) all += text;
    return all;
}

TEST(Check, findsEachFaultAndNothingElse) {
    const std::tuple<const char*, std::u16string, std::string> lines[]{
        {"LA_en", {0, 'x'}, "LA_en:46:1: error: U+0000: what is shown ends here, the copy does not [nul]\n"},
        {"LI_fr", u"lâ€™Ã©cran\nSociÃ©tÃ©\nCAFÉ®",
         "LI_fr:22:1: error: UTF-8 that was read as windows-1252 and encoded again (x2): zev shows the wrong "
         "characters [double-encoding]\n"},
        {"LI_ru", u"Р›РёС†РµРЅР·РёСЏ",
         "LI_ru:22:1: warning: UTF-8 that was read as windows-1251 and encoded again: zev shows the wrong characters "
         "[double-encoding]\n"},
        {"LI_fr", u"marqué\u00A0»\nmarqué\u00A0»", ""},  // U+983B in UTF-8
        {"LA_en", u"x 日本語 " + std::u16string(72, 'x'),
         "LA_en:46:3: warning: wide character (x3): counted as one column and shown as two, so its line overflows "
         "[wide-character]\n"},
        {"LA_en", u"x 日本語 " + std::u16string(73, 'x'), ""},  // the line feed counts as a column
        {"LA_en", u"日本語 한국어", ""},
        {"LA_en", u"日本語 " + std::u16string(70, 'x') + u" " + std::u16string(40, 'y'), ""},
        {"LA_en", std::u16string(81, u'x'),
         "LA_en:46:1: warning: a word is too wide for a line of 80 columns: it is cut, or its line overflows "
         "[wide-word]\n"},
        {"LA_en", std::u16string(80, u'x'), ""},
        {"LA_en", repeated(repeated(u"word ", 20) + u"\n", 20),
         "LA_en:46:1: warning: 19 of 52 lines are wrapped at more than 80 columns: zev shows a long line and a short "
         "one in turn. Make each paragraph one line, or wrap it for fewer columns [ragged]\n"},
        {"LA_en", repeated(repeated(u"word ", 16) + u"\n", 20), ""},
        {"LA_en", repeated(repeated(u"word ", 25) + u"\n", 20), ""},
        {"LA_pl", u"zale¿noœæ podstaw¹ wszêdzie treœci¹ przepisów³ oddzia³ywañ spo³eczeñstwa ca³oœæ ca³oœæ ca³oœæ",
         "LA_pl:46:5: warning: letters that no code page of the language has (x21): ³ œ æ ¹ ñ ¿ ê; was the text "
         "converted from the wrong code page? [foreign-letters]\n"},
        {"LA_pl", u"Ýçåè Ñåãü Òåæïà", ""},
        {"LA_el", u"Aδεια 5 μm, Άδεια",
         "LA_el:46:1: warning: word with letters of two scripts, such as \"Aδεια\": it looks right, but a "
         "search does not find it [homoglyph]\n"},
        {"LA_fr", u"e\u0301cran, te\u0301le\u0301phone, x\u0301",
         "LA_fr:46:1: warning: letter and accent as two characters (x3): counted as two columns and shown as one. "
         "Convert the text to NFC [decomposed]\n"},
        {"notices", u"Name\tOwner", ""},  // only copied, never shown
    };
    const SampleSet set;
    ASSERT_EQ(set.check({"--strict"}), "");
    std::vector<std::tuple<std::string, std::string, std::string>> rows{
        {"notices", utf16(u" \n \n"), "notices: error: empty [empty]\n"},
        {"LA_en", "\xFF\xFE\0\0T\0\0\0"s,
         "LA_en: error: UTF-32, not UTF-16. Convert it to UTF-8, then with: zev-licenses build [encoding]\n"
         "LA_en: error: cannot be laid out; zev ends with exit status 23 [layout]\n"},
        {"LA_en", "\uFEFF" + Sandbox().read(ZEV_SAMPLE_TEXTS "/LA_en.txt"),
         "LA_en: error: UTF-8, not UTF-16; zev shows it as Chinese characters. Convert it with: zev-licenses build "
         "[encoding]\n"},
        {"LA_en", set.read("set/LA_en") + "x",
         "LA_en: error: odd number of bytes; the last one is half a character [odd-byte]\n"},
        {"LA_en", set.read("set/LA_en").substr(0, set.read("set/LA_en").size() - 2),
         "LA_en: warning: no line feed at the end; the information begins in the last line [last-line]\n"},
        {"LA_en", withLine(set, "LA_en", u"\r\r\n\r"),
         "LA_en: warning: CR LF line ends (x2); the copies get them too [cr-lf]\n"
         "LA_en:46:1: warning: CR in a line: what follows it is shown over what comes before it [carriage-return]\n"},
        {"LA_en.txt", "", "LA_en.txt: warning: zev never reads a file of this name [name]\n"},
        {"a\nb \xFF", "", "a\uFFFDb \uFFFD: warning: zev never reads a file of this name [name]\n"},
    };
    for (const auto& [name, line, expected] : lines) rows.emplace_back(name, withLine(set, name, line), expected);
    for (const auto& [file, bytes, expected] : rows) {
        const std::string path = "set/" + file;
        const bool isOurs = set.has(path);
        const std::string good = set.read(path);
        set.write(path, bytes);
        EXPECT_EQ(set.check(), expected);
        isOurs ? set.write(path, good) : set.remove(path);
    }
}

TEST(Check, namesFilesThatCannotBeRead) {
    const SampleSet set;
    set.remove("set/LA_cs");
    set.link("set/LI_cs", "nowhere");
    set.link("set/LA_de", "LA_de");
    for (const char* name : {"set/LA_el", "set/LI_el", "set/notices"}) set.remove(name);
    mkdir(set.path("set/LA_el").c_str(), 0700);
    mkfifo(set.path("set/LI_el").c_str(), 0600);
    set.link("set/LA_en", "/dev/zero");
    set.link("set/LI_en", "../big");
    set.write("big", "x");
    std::filesystem::resize_file(set.path("big"), (256 << 20) + 1);
    EXPECT_EQ(set.check(), "LA_cs: error: missing [missing]\n"
                           "LI_cs: error: a link that leads nowhere [unreadable]\n"
                           "LA_de: error: cannot be read: Too many levels of symbolic links [unreadable]\n"
                           "LA_el LI_el LA_en: error: not a regular file [unreadable]\n"
                           "LI_en: error: larger than 256 MiB: no licence text [unreadable]\n");
}

TEST(Check, tellsEveryEncodingOfEveryLanguage) {
    for (const SetFile& file : filesOfSet(4)) {
        const std::string utf8 = Sandbox().read(ZEV_SAMPLE_TEXTS "/" + file.name + ".txt");
        const auto text = icu::UnicodeString::fromUTF8(utf8);
        const auto encodingOf = [&](const std::string& bytes) { return decodeText(bytes, file.language).encoding; };
        SCOPED_TRACE(file.name);
        EXPECT_EQ(encodingOf(utf8), Encoding::utf8);
        EXPECT_EQ(encodingOf("\xEF\xBB\xBF" + utf8), Encoding::utf8);
        const std::string big = encodeUtf16(text);
        std::string little;
        for (std::size_t i = 0; i < big.size(); i += 2) little += {big[i + 1], big[i]};
        for (const std::string& bytes : {big, big.substr(2), little}) {
            const DecodedText decoded = decodeText(bytes, file.language);
            EXPECT_EQ(decoded.encoding, Encoding::utf16);
            EXPECT_EQ(decoded.text, text);
        }
        EXPECT_EQ(encodingOf(little.substr(2)), Encoding::utf16LittleEndian);
        if (file.language == nullptr) continue;
        for (const char* codePage : file.language->codePages) {
            std::string bytes(utf8.size() * 2, '\0');
            bytes.resize(static_cast<std::size_t>(text.extract(0, text.length(), bytes.data(), codePage)));
            const bool isAscii = bytes == utf8;
            EXPECT_EQ(encodingOf(bytes), isAscii ? Encoding::utf8 : Encoding::codePage) << codePage;
        }
    }
}

TEST(Check, tellsSwappedAndRepeatedTexts) {
    const SampleSet set;
    const std::string english = set.read("set/LA_en"), simplified = set.read("set/LA_zh");
    std::filesystem::rename(set.path("set/LA_it"), set.path("set/LA_es"));
    std::filesystem::rename(set.path("set/LA_zh_TW"), set.path("set/LA_zh"));
    set.write("set/LA_zh_TW", simplified);
    EXPECT_EQ(set.check(),
              "LA_es: warning: most of the text reads like \"it\"; are two files swapped? [language]\n"
              "LA_it: error: missing [missing]\n"
              "LA_zh: warning: most of the text reads like \"zh_TW\"; are two files swapped? [language]\n"
              "LA_zh_TW: warning: most of the text reads like \"zh\"; are two files swapped? [language]\n");
    set.write("set/LA_zh_TW", set.read("set/LA_zh"));
    set.write("set/LA_zh", simplified);
    for (const char* name : {"set/LA_es", "set/LA_it", "set/LA_el"}) set.write(name, english);
    const auto smaller = languagesOfSet(alternativeLanguageSet);
    std::string agreements, informations;
    for (const auto& [code, englishName] : languages()) {
        if (std::ranges::count(smaller, std::string_view(code), &LanguageEntry::code) != 0) continue;
        agreements += std::string("LA_") + code + " ";
        informations += std::string("LI_") + code + " ";
    }
    informations.back() = ':';
    EXPECT_EQ(set.check({"--langset", "3"}), "LA_es LA_it: warning: the same text as LA_en [same-text]\n" + agreements +
                                                 informations +
                                                 " warning: zev never reads a file of this name [name]\n");
    EXPECT_EQ(set.check({"--stand-in", "en"}), "");
    set.write("set/LI_it", utf16(u"\n") + english.substr(2));
    const std::string notInItsPlace = set.check({"--stand-in", "en"});
    EXPECT_NE(notInItsPlace.find("LI_it: warning: the same text as LA_en [same-text]\n"), std::string::npos);
    EXPECT_NE(notInItsPlace.find("LI_it: warning: most of the text reads like \"en\""), std::string::npos);
    set.write("set/LI_it", set.read("set/LI_de"));
    EXPECT_EQ(set.check({"--stand-in", "de"}).find("LI_it"), std::string::npos);
    set.write("set/LI_ru", set.read("set/LI_el"));
    EXPECT_NE(set.check().find("LI_ru: warning: the same text as LI_el [same-text]\n"
                               "LI_ru: error: hardly any letter is of the language's script [script]\n"),
              std::string::npos);
}

TEST(Check, namesKindsAndLossesForPrograms) {
    const SampleSet set;
    set.write("set/LA_en", withLine(set, "LA_en", {0,    0,      0xFFFF, 0xD83D, '\r',   0xFFFD, '\t', '\t',
                                                   '\v', '\f',   0x1B,   0x85,   0x2028, 0x2029, '\a', 0xFEFF,
                                                   0xAD, 0x202E, 0x2066, 0x200F, 0x200B, 0xE000}));
    set.write("set/LA_zh_TW", "");
    set.write("set/\xFF", "");
    set.write("set/LA_ru", utf16(u"\u042F\u042F\u042F\u042F\n"));
    set.write("set/LI_ru", utf16(u"\n\u042F \u2014 \u20AC \u2014 \xAD \u2500\n"));
    const std::string shown = set.check({"--pages"});
    EXPECT_NE(shown.find("\nru: KOI8-R loses 4 (\u2014 U+00AD \u20AC), ISO-8859-5 loses "), shown.npos) << shown;
    EXPECT_NE(shown.find("\nen: US-ASCII loses nothing\n"), shown.npos) << shown;
    EXPECT_NE(shown.find("\nzh: GB2312 loses nothing, GBK loses nothing, Big5 loses "), shown.npos) << shown;
    const auto report = nlohmann::json::parse(runLicenses({"check", set.path("set"), "--json", "--pages"}).out);
    std::string kinds;
    for (const auto& finding : report["findings"]) kinds += finding["kind"].get<std::string>() + " ";
    EXPECT_EQ(kinds,
              "nul u-ffff unpaired-surrogate carriage-return lost-character tab vertical-tab form-feed escape "
              "next-line line-separator paragraph-separator control byte-order-mark soft-hyphen "
              "bidirectional-control invisible unassigned structure facts structure facts soft-hyphen empty name ");
    EXPECT_EQ(report["errors"], 4);
    EXPECT_EQ(report["warnings"], 21);
    EXPECT_EQ(report["findings"][5],
              nlohmann::json::parse(R"({"file": "LA_en", "path": ")" + set.path("set/LA_en") +
                                    R"(", "line": 46, "column": 7, "severity": "warning", "kind": "tab",
        "message": "tab (x2): counted as one column, shown as up to eight", "accepted": false})"));
    EXPECT_EQ(report["codePages"]["en"]["US-ASCII"]["lost"], 0);
}

TEST(Check, endsWithItsVerdict) {
    const SampleSet set;
    const std::string directory = set.path("set"), german = set.read("set/LA_de");
    const auto expect = [&](const Arguments& options, int status, const std::string& summary) {
        const Finished finished = runLicenses(joined({"check", directory + "//"}, options));
        EXPECT_EQ(finished.exitCode, status);
        EXPECT_TRUE(finished.out.ends_with(directory + ": " + summary + "\n")) << finished.out;
        EXPECT_EQ(finished.err, "");
    };
    expect({"--strict"}, 0, "no findings");
    set.write("set/LA_en", withLine(set, "LA_en", u"\t"));
    expect({}, 0, "0 errors, 1 warning");
    expect({"--strict"}, 1, "0 errors, 1 warning");
    expect({"--accept", "tab", "--strict"}, 0, "0 errors, 0 warnings, 1 accepted");
    expect({"--strict", "--accept", "tab:LA_en"}, 0, "0 errors, 0 warnings, 1 accepted");
    expect({"--accept", "tab:LA_de"}, 0, "0 errors, 2 warnings");
    expect({"--accept", "tab", "--accept", "name", "--strict"}, 1, "0 errors, 1 warning, 1 accepted");
    set.write("set/LA_de", set.read("set/LA_en"));
    expect({"--strict", "--stand-in", "en", "--accept", "tab:LA_en"}, 0, "0 errors, 0 warnings, 1 accepted");
    set.write("set/LA_de", german);
    set.remove("set/LA_en");
    set.remove("set/LI_en");
    expect({}, 1, "2 errors, 0 warnings");
    expect({"--accept", "missing", "--accept", "acceptance"}, 1, "2 errors, 2 warnings");
    EXPECT_EQ(
        set.check({"--accept", "missing:LA_en", "--accept", "tab"}),
        "LA_en LI_en: error: missing [missing]\n"
        "zev-licenses: warning: --accept missing:LA_en meets errors only, and errors cannot be accepted [acceptance]\n"
        "zev-licenses: warning: --accept tab meets no finding [acceptance]\n");
    for (const char* value : {"", ":", "tab:", ":LA_en"}) {
        EXPECT_EQ(runLicenses({"check", directory, "--accept", value}).exitCode, 2) << value;
    }
}

}  // namespace
}  // namespace zev::test
