#include <gtest/gtest.h>

#include <algorithm>

#include "authoring/leftovers.h"
#include "authoring/text_checks.h"
#include "authoring/text_comparison.h"
#include "authoring/text_facts.h"
#include "support/session.h"

namespace zev::test {
namespace {

SetText textOf(const std::string& name, const icu::UnicodeString& text) {
    const auto files = filesOfSet(4);
    return {*std::ranges::find(files, name, &SetFile::name), name, text};
}

icu::UnicodeString sample(const std::string& name) {
    return icu::UnicodeString::fromUTF8(Sandbox().read(ZEV_SAMPLE_TEXTS "/" + name + ".txt"));
}

/// The texts between the empty lines of a text.
std::vector<icu::UnicodeString> paragraphsOf(const icu::UnicodeString& text) {
    std::vector<icu::UnicodeString> paragraphs;
    for (int32_t begin = 0, end; begin < text.length(); begin = end + 2) {
        end = text.indexOf(u"\n\n", begin);
        if (end < 0) end = text.length();
        paragraphs.emplace_back(text, begin, end - begin);
    }
    return paragraphs;
}

icu::UnicodeString inParagraphs(const std::vector<icu::UnicodeString>& paragraphs) {
    icu::UnicodeString text;
    for (const auto& paragraph : paragraphs) text += (text.isEmpty() ? u"" : u"\n\n") + paragraph;
    return text + u"\n";
}

/// The findings in a translation that is compared with its original, which is in the language `standIn` or in English.
std::string findingsIn(const SetText& translation, const SetText& original, const std::string& standIn = "") {
    const SetText texts[]{original, translation};
    Findings findings = checkTexts(texts, standIn);
    std::erase_if(findings, [&](const Finding& finding) { return finding.file.name != translation.file.name; });
    return listFindings(findings);
}

TEST(Comparison, comparesAddressesAndNumbersByWhatTheyMean) {
    const std::tuple<const char*, std::u16string, std::string> rows[]{
        {"en", u"1,000.00 and 4.0, 5.1. In 2007, 2016", "100000 2007 2016 40 51"},
        {"de", u"1.000,00 und 4,0 (5.1); 2007, 2016", "100000 2007 2016 40 51"},
        {"fr", u"1\u202F000,00 et 1 000 et 1\u00A0000\u00A0000 et 1’000’000", "1000 100000 1000000"},
        {"tr", u"4.0'a, 1996'da, www.acme.example'dan", "1996 40 acme.example"},
        {"ja", u"１，０００円、４．０版、二〇二四年、１９９６年", "1000 1996 2024 40"},
        {"ar", u"١٩٩٦", "1996"},
        {"en", u"November 22, 2024 and 20 1996 and section 4 of 12 (3)", "1996 2024"},
        {"de", u"22.11.2024, 2024-11-22, 22. 11. 2024, 11.2024, 2024.11.22", "2024"},
        {"de", u"2.1.2024.7 und 100.2024.100", "1002024100 2120247"},
        {"en", u"See <https://www.Acme.example/a/b.html>, (http://acme.example/a), www.acme.example.",
         "acme.example acme.example/a acme.example/a/b.html"},
        {"ja", u"詳細はacme.org/aを。https://acme.example/bで、info@acme.exampleへ",
         "acme.example/b acme.org/a info@acme.example"},
        {"de", u"Acme.com-Dienste, info@acme.example-Postfach, z.B./d.h. und README.txt", "acme.com info@acme.example"},
        {"en", u"legalcode, 1, 22, 333", ""},
    };
    for (const auto& [language, text, expected] : rows) {
        std::string names;
        for (const auto& [name, fact] : factsOf(icu::UnicodeString(text.c_str()), language)) {
            names += (names.empty() ? "" : " ") + name;
        }
        EXPECT_EQ(names, expected);
    }
}

TEST(Comparison, findsFactsThatOneTextLacks) {
    const std::tuple<const char*, std::u16string, std::u16string, std::string> rows[]{
        {"LA_de", u"Version 4.0 of 2024", u"Version 4,0 von 2024", ""},
        {"LA_de", u"Version 4.0 of 2024", u"Version 4,0 von 2042",
         "LA_de: warning: lacks 2024: LA_en has it in line 1 [facts]\n"
         "LA_de:1:17: warning: 2042: not in LA_en [facts]\n"},
        {"LA_fr", u"http://acme.example/en/terms", u"https://acme.example/fr/terms", ""},
        {"LA_ja", u"https://acme.example/terms", u"https://acme.example/jp/terms", ""},
        {"LA_zh_TW", u"https://acme.example/en-us/terms", u"https://acme.example/zh-tw/terms", ""},
        {"LA_fr", u"www.acme.example/en/terms", u"www.acme.example/it/terms",
         "LA_fr: warning: lacks www.acme.example/en/terms: LA_en has it in line 1 [facts]\n"
         "LA_fr:1:1: warning: www.acme.example/it/terms: not in LA_en [facts]\n"},
        {"LA_de", u"en.acme.com/x, acme.com/gpl.html", u"acme.com/x, acme.com/gpl.de.html", ""},
        {"LA_de", u"acme.com/a_en?hl=en-gb, us.acme.com", u"acme.com/a_de?hl=de, de.acme.com", ""},
        {"LA_de", u"acme.com/a/b, acme.com/x?y, acme.com/contact-us, us.acme.com",
         u"acme.com/a-b, acme.com/x/y, acme.com/contact, acme.com",
         "LA_de: warning: lacks acme.com/a/b, acme.com/x?y, acme.com/contact-us and 1 more: LA_en has the "
         "first of them in line 1 [facts]\n"
         "LA_de:1:1: warning: acme.com/a-b, acme.com/x/y, acme.com/contact and 1 more: not in LA_en "
         "[facts]\n"},
        {"LI_de", u"1111 2222 3333 4444 5555", u"x",
         "LI_de: warning: lacks 1111, 2222, 3333 and 2 more: LI_en has the first of them in line 1 [facts]\n"},
    };
    for (const auto& [name, english, translated, expected] : rows) {
        const auto original =
            textOf(std::string(name).substr(0, 3) + "en", icu::UnicodeString(english.c_str()) + u"\n");
        std::string found = findingsIn(textOf(name, icu::UnicodeString(translated.c_str()) + u"\n"), original);
        const std::size_t script = found.find(std::string(name) + ": error: hardly");  // addresses are all in Latin
        if (script != found.npos) found.erase(script, found.find('\n', script) + 1 - script);
        EXPECT_EQ(found, expected);
    }
}

TEST(Comparison, countsParagraphs) {
    const auto paragraphs = [](int count) {
        icu::UnicodeString text;
        while (count-- > 0) text += u"word\n \nword\n\n\n";
        return text;
    };
    const std::tuple<int, int, bool> rows[]{{20, 17, false}, {20, 16, true}, {20, 23, false},
                                            {20, 24, true},  {20, 40, true}, {2, 1, false},
                                            {2, 3, false},   {2, 4, true},   {1, 2, false}};
    for (const auto& [original, translation, isFound] : rows) {
        const std::string found =
            findingsIn(textOf("LA_de", paragraphs(translation)), textOf("LA_en", paragraphs(original)));
        const std::string expected = "LA_de: warning: " + std::to_string(2 * translation) + " paragraphs, LA_en has " +
                                     std::to_string(2 * original) + " [structure]\n";
        EXPECT_EQ(found, isFound ? expected : "");
    }
}

TEST(Comparison, findsParagraphsThatAreNotTranslated) {
    for (const std::string original : {"en", "de", "pt", "cs", "ru", "ja", "zh"}) {
        const SetText source = textOf("LA_" + original, sample("LA_" + original));
        const TextComparison comparison(source);
        for (const SetFile& file : filesOfSet(4)) {
            if (file.kind != TextKind::agreement || file.language->code == original) continue;
            SCOPED_TRACE(file.name + " of " + original);
            const icu::UnicodeString translation = sample(file.name);
            EXPECT_EQ(listFindings(comparison.compare(textOf(file.name, translation))), "");
            auto mixed = paragraphsOf(translation);
            mixed[2] = paragraphsOf(source.text)[2];
            icu::UnicodeString edited = mixed[2];
            for (const char16_t* gap : {u" ", u"、", u"。"}) edited.findAndReplace(gap, u"\n");
            edited.findAndReplace(u"VUR", u"ACME");
            for (const icu::UnicodeString& paragraph : {mixed[2], edited}) {
                mixed[2] = paragraph;
                const std::string found = listFindings(comparison.compare(textOf(file.name, inParagraphs(mixed))));
                EXPECT_EQ(found.find(file.name + ":5:1: warning: 1 of "), 0U) << found;
            }
        }
    }
    const icu::UnicodeString names =
        u"Harbour Ledger, Tidegauge Parser, Lanternsort, Pebble Figures, Northquay Cooperative, Brisk Otter Works, "
        u"Ilse Marrow, Quayside Tables, Gull Reports\n";
    EXPECT_EQ(findingsIn(textOf("LI_de", names + u"\nWeitere Angaben gibt es nicht.\n"),
                         textOf("LI_en", names + u"\nNo more.\n")),
              "");
}

TEST(Comparison, tellsTheTwoWaysOfWritingChineseApartByParagraphs) {
    const SetText english = textOf("LA_en", sample("LA_en"));
    const std::tuple<const char*, const char*, const char*> rows[]{{"LA_zh", "LA_zh_TW", "in Traditional Chinese"},
                                                                   {"LA_zh_TW", "LA_zh", "in Simplified Chinese"}};
    for (const auto& [name, other, message] : rows) {
        auto mixed = paragraphsOf(sample(name));
        mixed[2] = paragraphsOf(sample(other))[2];
        const std::string found = findingsIn(textOf(name, inParagraphs(mixed)), english);
        EXPECT_EQ(found.find(std::string(name) + ":5:1: warning: 1 of "), 0U) << found;
        EXPECT_NE(found.find(message), std::string::npos) << found;
    }
}

TEST(Comparison, takesAListOfNamesForNoOtherLanguage) {
    const icu::UnicodeString list = u"Harbour Ledger Enterprise Edition\nTidegauge Parser 2.1, Lanternsort, français\n";
    const icu::UnicodeString half = u"Harbour Ledger には、次の製品が含まれます。Tidegauge Parser Lanternsort Pebble\n";
    const std::tuple<const char*, icu::UnicodeString, std::string> rows[]{
        {"LI_ja", list, "LI_ja: warning: hardly any letter is of the language's script [script]\n"},
        {"LA_ja", list, "LA_ja: error: hardly any letter is of the language's script [script]\n"},
        {"LI_ja", half, "LI_ja: warning: most letters are not of the language's script [script]\n"},
        {"LI_ja", sample("LI_de"), "LI_ja: error: hardly any letter is of the language's script [script]\n"},
        {"LI_ru", sample("LI_el"), "LI_ru: error: hardly any letter is of the language's script [script]\n"},
        {"LI_ko", sample("LI_zh"), "LI_ko: error: hardly any letter is of the language's script [script]\n"},
        {"LI_ko", u"授權條款\n", "LI_ko: warning: hardly any letter is of the language's script [script]\n"},
    };
    for (const auto& [name, text, expected] : rows) {
        const SetText texts[]{textOf(name, text)};
        EXPECT_EQ(listFindings(checkTexts(texts, "")), expected);
    }
}

TEST(Leftovers, areFoundAmongLettersOfAnyScript) {
    const std::u16string_view leftovers =
        u"<<<<<<< HEAD¦=======¦>>>>>>> main¦||||||| base¦{product}¦{0}¦{Product Name}¦${x}¦{{ x }}¦"
        u"@PACKAGE_NAME@¦@project.version@¦&sbquo;¦&rsaquo;¦&iquest;¦&times;¦<title>¦<!-- x -->¦"
        u"@x@¦%s¦%1$s¦%d¦FIXME¦XXX¦TODO: ask¦Lorem ipsum¦[INSERT NAME]¦[insert date here]¦<b>¦</p>¦"
        u"<br />¦<a href=\"x\">¦&nbsp;¦&eacute;¦&#8217;¦&#x2019;¦{\\rtf1¦\\n¦\\r\\n¦\\u00e9¦=C3=A9¦=3D"
        u"¦Zeile\\nzweite¦ =DCbung¦men=FC¦da=DF";
    const std::u16string_view others =
        u"[yyyy]¦____¦{yyyy}¦{name of copyright owner}¦**bold**¦TODO EL MUNDO¦XXXI¦HAS_XXX_DEF¦"
        u"50 % des¦100%¦a@b.example¦<year>¦<me at home.example>¦C:\\new\\table¦\\\\server\\name¦C:\\Program "
        u"Files\\new¦docs\\new.txt¦"
        u"C=DE¦AT&T; x¦"
        u"https://a.example/?uri=CELEX:1¦{ or }¦Note\n=======¦=====¦a <= b";
    const auto forEach = [](std::u16string_view lines, const auto& use) {
        for (std::size_t begin = 0, end; begin < lines.size(); begin = end + 1) {
            end = std::min(lines.find(u'¦', begin), lines.size());
            use(icu::UnicodeString(lines.data() + begin, static_cast<int32_t>(end - begin)));
        }
    };
    const auto finds = [](const icu::UnicodeString& line, bool expected) {
        std::string shown;
        const SetText text = textOf("LA_en", u"The first line of the text is long enough.\n" + line + u"\n");
        EXPECT_EQ(!findLeftovers(text).empty(), expected) << line.toUTF8String(shown);
    };
    forEach(leftovers, [&](const icu::UnicodeString& leftover) {
        finds(leftover, true);
        const bool isLine = leftover[1] == leftover[2];
        if (!isLine) finds(u"版本" + leftover + u"版本", true);
    });
    forEach(others, [&](const icu::UnicodeString& other) { finds(other, false); });
    EXPECT_EQ(findLeftovers(textOf("LA_zh", u"这一行有十多个汉字在里面\n=======\n")).size(), 1U) << "after a full line";
    EXPECT_EQ(listFindings(findLeftovers(textOf("LI_fr", u"\nLe produit {name} {name}\n"))),
              "LI_fr:2:12: warning: placeholder left in the text (x2): {name} [leftover]\n");
}

}  // namespace
}  // namespace zev::test
