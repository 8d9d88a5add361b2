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

/// An English agreement that is long enough to be told from other languages, with something in its third line.
std::string english(const std::u16string& more, const std::u16string& end = u"\n") {
    return utf16(u"This agreement is made between the maker of the program and you.\n\n" + more + u" is in the text" +
                 end);
}

TEST(Check, findsEachFaultAndNothingElse) {
    const std::tuple<const char*, std::string, std::string> rows[]{
        {"LA_en", "", "LA_en: error: empty [empty]\n"},
        {"notices", utf16(u" \n \n"), "notices: error: empty [empty]\n"},
        {"LA_en", "\uFEFFthe terms\0more of the terms\n"s,
         "LA_en: error: UTF-8, not UTF-16; zev shows it as Chinese characters. Convert it with: zev-licenses build "
         "[encoding]\n"
         "LA_en:1:10: error: U+0000: the screen ends here, the copy does not [nul]\n"},
        {"LA_en", "\xFF\xFE\0\0T\0\0\0"s,
         "LA_en: error: UTF-32, not UTF-16. Convert it to UTF-8, then with: zev-licenses build [encoding]\n"
         "LA_en: error: cannot be laid out; zev ends with 23 [layout]\n"},
        {"LA_en", english(u"Nothing") + "x",
         "LA_en: error: odd number of bytes; the last one is half a character [odd-byte]\n"},
        {"LI_fr", utf16(u"\nlâ€™Ã©cran\nSociÃ©tÃ©\nCAFÉ®\n"),
         "LI_fr:2:1: error: UTF-8 that was read as windows-1252 and encoded again (x2): zev shows it so "
         "[double-encoding]\n"},
        {"LI_ru", utf16(u"Р›РёС†РµРЅР·РёСЏ\n"),
         "LI_ru:1:1: error: UTF-8 that was read as windows-1251 and encoded again: zev shows it so "
         "[double-encoding]\n"},
        {"LA_el", english(u"Nothing"), "LA_el: error: most letters are not of the language's script [script]\n"},
        {"LI_ja", utf16(u"授權條款\n"), "LI_ja: error: most letters are not of the language's script [script]\n"},
        {"LI_ko", utf16(u"許可協議\n"), "LI_ko: error: most letters are not of the language's script [script]\n"},
        {"LA_en", english(u"Nothing", u"\r\n\r\n"),
         "LA_en: warning: CR LF line ends (x2); the copies get them too [cr-lf]\n"},
        {"LA_en", english(u"Nothing", u""),
         "LA_en: warning: no line feed at the end; the information begins in its last line [last-line]\n"},
        {"LA_en", english(u"日本"),
         "LA_en:3:1: warning: wide character (x2): counted as one column and shown as two, so its line may overflow "
         "[wide-character]\n"},
        {"LA_en", english(std::u16string(81, u'x')),
         "LA_en:3:1: warning: a word that a line of 80 columns cannot hold is cut, or its line overflows "
         "[wide-word]\n"},
        {"LA_en", english(std::u16string(80, u'x')), ""},
        {"LI_ja", utf16(u"許諾\n" + std::u16string(40, u'é') + u" " + std::u16string(50, u'あ')),
         "LI_ja:2:1: warning: a word that a line of 80 columns cannot hold is cut, or its line overflows "
         "[wide-word]\n"},
        {"LA_en.txt", "", "LA_en.txt: warning: zev never reads a file of this name [name]\n"},
        {"a\nb \xFF", "", "a\uFFFDb \uFFFD: warning: zev never reads a file of this name [name]\n"},
        {"notices", utf16(u"Name\tOwner\n"), ""},  // only copied, never shown
    };
    const SampleSet set;
    ASSERT_EQ(set.check({"--strict"}), "");
    for (const auto& [file, bytes, expected] : rows) {
        const std::string path = std::string("set/") + file;
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
    EXPECT_EQ(set.check(), "LA_cs LI_cs: error: missing [missing]\n"
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
    EXPECT_EQ(set.check(), "LA_es: warning: most of it reads like it; are two files swapped? [language]\n"
                           "LA_it: error: missing [missing]\n"
                           "LA_zh: warning: most of it reads like zh_TW; are two files swapped? [language]\n"
                           "LA_zh_TW: warning: most of it reads like zh; are two files swapped? [language]\n");
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
    set.write("set/LI_it", english);
    EXPECT_EQ(set.check({"--stand-in", "en"}), "LI_it: warning: the same text as LA_en [same-text]\n")
        << "not in its place";
    set.write("set/LI_it", set.read("set/LI_de"));
    EXPECT_EQ(set.check({"--stand-in", "de"}).find("LI_it"), std::string::npos);
}

TEST(Check, namesKindsAndLossesForPrograms) {
    const SampleSet set;
    set.write("set/LA_en",
              english({0,    0,      0xFFFF, 0xD83D, '\r',   0xFFFD, '\t',   '\t',   '\v',   '\f',   0x1B,
                       0x85, 0x2028, 0x2029, '\a',   0xFEFF, 0xAD,   0x202E, 0x2066, 0x200F, 0x200B, 0xE000}));
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
    EXPECT_EQ(kinds, "nul u-ffff unpaired-surrogate carriage-return lost-character tab vertical-tab form-feed escape "
                     "next-line line-separator paragraph-separator control byte-order-mark soft-hyphen "
                     "bidirectional-control invisible unassigned soft-hyphen empty name ");
    EXPECT_EQ(report["errors"], 4);
    EXPECT_EQ(report["warnings"], 17);
    EXPECT_EQ(report["findings"][5],
              nlohmann::json::parse(R"({"file": "LA_en", "path": ")" + set.path("set/LA_en") +
                                    R"(", "line": 3, "column": 7, "severity": "warning", "kind": "tab",
        "message": "tab (x2): counted as one column, shown as up to eight", "accepted": false})"));
    EXPECT_EQ(report["codePages"]["en"]["US-ASCII"]["lost"], 0);
}

TEST(Check, endsWithItsVerdict) {
    const SampleSet set;
    const std::string directory = set.path("set");
    const auto expect = [&](const Arguments& options, int status, const std::string& summary) {
        const Finished finished = runLicenses(joined({"check", directory + "//"}, options));
        EXPECT_EQ(finished.exitCode, status);
        EXPECT_TRUE(finished.out.ends_with(directory + ": " + summary + "\n")) << finished.out;
        EXPECT_EQ(finished.err, "");
    };
    expect({"--strict"}, 0, "no findings");
    set.write("set/LA_en", english(u"\t"));
    expect({}, 0, "0 errors, 1 warning");
    expect({"--strict"}, 1, "0 errors, 1 warning");
    expect({"--accept", "tab", "--strict"}, 0, "0 errors, 0 warnings, 1 accepted");
    expect({"--strict", "--accept", "tab:LA_en"}, 0, "0 errors, 0 warnings, 1 accepted");
    expect({"--accept", "tab:LA_de"}, 0, "0 errors, 2 warnings");
    expect({"--accept", "tab", "--accept", "name", "--strict"}, 1, "0 errors, 1 warning, 1 accepted");
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
