#include <gtest/gtest.h>
#include <unicode/regex.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>

#include "app/run_options.h"
#include "authoring/language_profile.h"
#include "authoring/shown_language.h"
#include "console/code_page_loss.h"
#include "console/license_dialog.h"
#include "console/screens.h"
#include "lang/environment_locale.h"
#include "lang/language_table.h"
#include "lang/locale_choice.h"
#include "lang/resource_factory.h"
#include "support/session.h"

namespace zev::test {

/// The texts of a language by slot number, as its catalogue returns them if the code page is ISO 8859-1.
std::vector<icu::UnicodeString> textsOf(const char* code) {
    setenv("LC_ALL", "en_US.ISO-8859-1", 1);
    adoptEnvironmentLocale();
    const auto resource = createResource(code, false);
    const Resource& r = *resource;
    return {r.getLanguageCode(),    r.NUMERIC1_KEY(),    r.TITLE_KEY(),      r.INSTRUCTIONS_KEY(), r.ACCEPT_KEY(),
            r.DECLINE_KEY(),        r.PRINT_KEY(),       r.YES_KEY(),        r.NO_KEY(),           r.DECLINED_KEY(),
            r.CONFIRMDECLINE_KEY(), r.CLILANGMENU_KEY(), r.CLILANGMSG_KEY(), r.CLITITLE_KEY(),     r.CLIINTROMSG_KEY(),
            r.CLICONTMSG_KEY(),     r.CLICFMMSG_KEY(),   r.CLIACCMSG_KEY(),  r.NUMERIC2_KEY(),     r.NUMERIC3_KEY(),
            r.PRINTERRMSG_KEY(),    r.LANGNAME_KEY(),    r.NONVURTERMS_KEY()};
}

/// The slots that the console uses.
constexpr std::array shownSlots{6U, 15U, 16U, 17U, 20U, 21U, 22U};

bool isFound(const icu::UnicodeString& pattern, const icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    const bool found = icu::RegexMatcher(pattern, text, 0, status).find(status);
    EXPECT_TRUE(U_SUCCESS(status)) << "else a pattern with a fault would find nothing and no one notice";
    return found;
}

/// The pieces of `text` between what matches `pattern`.
std::vector<icu::UnicodeString> split(const icu::UnicodeString& pattern, const icu::UnicodeString& text) {
    std::array<icu::UnicodeString, 64> pieces;
    UErrorCode status = U_ZERO_ERROR;
    const auto count = icu::RegexMatcher(pattern, 0, status).split(text, pieces.data(), pieces.size(), status);
    return {pieces.begin(), pieces.begin() + count};
}

/// "<code> <slot>, " of each text in which `pattern` is found.
std::string textsWith(const icu::UnicodeString& pattern) {
    std::string found;
    for (const auto& [code, name] : languages()) {
        const auto texts = textsOf(code);
        for (std::size_t slot = 1; slot < texts.size(); ++slot) {
            if (isFound(pattern, texts[slot])) found += code + (" " + std::to_string(slot)) + ", ";
        }
    }
    return found;
}

TEST(Catalogue, asksForTheNumbersThatTheDialogueUnderstands) {
    for (const auto& [code, name] : languages()) {
        SCOPED_TRACE(code);
        const auto texts = textsOf(code);
        EXPECT_EQ(texts[0], code);
        EXPECT_TRUE(isFound(u"\"1\".*\"2\".*\"99\".*(\\.|u3002|u300D)\n\\z", texts[15])) << "what the choices follow";
        EXPECT_TRUE(isFound(u"\"2\".*\"1\"", texts[16]));
        EXPECT_TRUE(isFound(u"\"1\".*\"2\"", texts[17]));
        for (const unsigned slot : {9U, 22U}) EXPECT_TRUE(isFound(u"VUR", texts[slot]));
        for (const unsigned slot : {3U, 11U, 12U, 14U, 16U, 17U}) {
            EXPECT_TRUE(isFound(slot == 3 ? u" \\z" : u"\n\\z|^UNUSED\\z", texts[slot])) << slot;
        }
        EXPECT_TRUE(isFound(u"^1[02] 1[08] 16\\z", texts[1] + u" " + texts[18] + u" " + texts[19]));
        EXPECT_TRUE(
            isFound(u"^(UNUSED|.*\n1\\. \\S* \n([2-9]\\. \\S*\n){8}|.*\n(\\d+\\. [A-Z][a-z]+\n){12})\\z", texts[11]));
    }
}

TEST(Catalogue, showsItselfInEveryCodePageOfItsLanguage) {
    for (const auto& [code, name] : languages()) {
        const auto texts = textsOf(code);
        for (const char* codePage : profileOf(code).codePages) {
            for (const unsigned slot : shownSlots) {
                EXPECT_EQ(lossIn(codePage, texts[slot].unescape()).list(), "") << code << codePage;
            }
        }
    }
}

TEST(Catalogue, joinsNumbersAndOneLetterWordsToWhatFollowsThem) {
    const auto hasNoBreakSpace = [](const char* codePage) { return lossIn(codePage, u"\u00A0").count() == 0; };
    for (const auto& [code, name] : languages()) {
        const bool joinsNumbers = std::ranges::all_of(profileOf(code).codePages, hasNoBreakSpace);
        const bool joinsLetters = isFound(u"cs|pl|sl", code);
        const auto texts = textsOf(code);
        for (const unsigned slot : shownSlots) {
            const auto text = texts[slot].unescape();
            EXPECT_FALSE(joinsNumbers && isFound(u"\"\\d+\" ", text)) << code << slot;
            EXPECT_FALSE(joinsLetters && isFound(u"\\b\\p{L} ", text)) << code << slot;
        }
    }
}

TEST(Catalogue, endsNoLineOfAPromptInANumberOrInsideALabelAtEightyColumns) {
    const Sandbox sandbox;
    const auto expectWhole = [](LicenseDialog& dialog) {
        const auto screens = Screens::layOut(dialog, u"text");
        for (const TextLines* prompt : {&screens->endPrompt(), &screens->confirmation(), &screens->continuePrompt()}) {
            for (std::size_t i = 0; i < prompt->size(); ++i) {
                std::string line;
                lineOf(*prompt, i).toUTF8String(line);
                EXPECT_FALSE(isFound(u"\"\\d+\" *\\p{Hangul}*\n\\z", lineOf(*prompt, i))) << line;
            }
        }
    };
    for (const bool hasOtherTerms : {false, true}) {
        if (hasOtherTerms) sandbox.write("licenses/non_vur_license", "");
        for (const auto& [code, name] : languages()) {
            RunContext context = createRunContext(sandbox.path("licenses"), "", 4);
            ASSERT_TRUE(setLocale(context, code));
            LicenseDialog dialog(context);
            expectWhole(dialog);
            if (toggleLanguage(dialog)) expectWhole(dialog);  // in English, beside the name of this language
        }
    }
}

TEST(Catalogue, keepsItsIrregularities) {
    std::string unused;
    for (const auto& [code, name] : languages()) {
        if (matchLanguage(createRunContext("", "", alternativeLanguageSet), code) != nullptr) continue;
        for (const char* slot : {" 11, ", " 12, ", " 13, ", " 14, "}) unused += code + std::string(slot);
    }
    const std::pair<const char16_t*, std::string> rows[]{
        {u"[\\x80-\\xFF]", "de 3, de 9, de 10, de 11, es 3, es 7, es 9, es 10, es 11, fr 3, fr 9, fr 10, fr 11, "
                           "it 3, it 7, it 9, pt 2, pt 3, pt 8, pt 9, pt 10, pt 11, "},  // raw bytes
        {u"u009[AE]", "cs 2, cs 3, cs 9, cs 10, cs 12, cs 14, "},
        {u"u009A", "cs 14, "},
        {u"u009[AE].*u01(61|7E)|u01(61|7E).*u009[AE]", ""},
        {u"(?s)^(?=.*u00E8)(?=.*u00C8)(?=.*u00EC).*\n9", "cs 11, "},  // instead of c, C and e with caron
        {u"u01(0C|0D|1B)[^\n]*\n[1-9]", ""},
        {u"^12\\z", "el 1, ja 1, ko 1, lt 1, ru 1, sl 1, zh 1, zh_TW 1, "},
        {u"^18\\z", "ja 18, ko 18, zh 18, zh_TW 18, "},
        {u"^UNUSED\\z", unused},
        {u"\n12\\. Swedish\n\\z", "ja 11, ko 11, zh 11, zh_TW 11, "},
        {u"^Please enter the number that corresponds", "en 12, ja 12, ko 12, zh 12, zh_TW 12, "},
        {u"^Software Licensing Agreement\\z", "en 13, ja 13, ko 13, zh 13, zh_TW 13, "},
        {u"u300D\n\\z", "ja 15, "},  // a bracket ends the continue prompt
    };
    for (const auto& [pattern, texts] : rows) EXPECT_EQ(textsWith(pattern), texts);
    EXPECT_FALSE(isFound(u"(de|es|fr|it|pt) ([23789]|10|11), ", textsWith(u"\\\\u").c_str()))
        << "raw where others escape";
}

TEST(Catalogue, hasNoWordThatTheGlossaryGivesToAnotherLanguage) {
    std::map<std::string, std::vector<icu::UnicodeString>> termsOf;
    std::vector<icu::UnicodeString> codes;
    std::ifstream glossary(ZEV_GLOSSARY);
    for (std::string line; std::getline(glossary, line);) {
        if (!line.starts_with("| ")) continue;
        const auto cells = split(u" \\| |\\| | \\|", icu::UnicodeString::fromUTF8(line));
        const bool isHeader = codes.empty();
        if (isHeader) codes = cells;
        for (std::size_t i = 1; !isHeader && i < cells.size() && !cells[i].isEmpty(); ++i) {
            std::string code;
            auto& terms = termsOf[codes[i].toUTF8String(code)];
            for (const auto& term : split(u" / ", cells[i])) terms.push_back(term);
        }
    }
    EXPECT_EQ(termsOf.size(), languages().size());
    for (const auto& [code, name] : languages()) {
        icu::UnicodeString shown, own;
        const auto texts = textsOf(code);
        for (std::size_t slot = 1; slot < texts.size(); ++slot) {
            if (slot < 11 || slot > 13) shown += texts[slot].unescape() + u"\n";  // those may be in English
        }
        for (const auto& term : termsOf[code]) own += term + u"\n";
        EXPECT_FALSE(own.isEmpty()) << code << " has no column";
        for (const auto& [other, terms] : termsOf) {
            for (const auto& term : terms) {
                const bool isOwn = own.toLower().indexOf(icu::UnicodeString(term, 0, term.length() - 1).toLower()) >= 0;
                const icu::UnicodeString edge(isFound(u"[\\u3000-\\uD7FF]", term) ? u"" : u"\\b");
                const bool isUsed = !isOwn && isFound(u"(?i)" + edge + u"\\Q" + term + u"\\E" + edge, shown);
                std::string word;
                EXPECT_FALSE(isUsed) << code << " has the " << other << " term " << term.toUTF8String(word);
            }
        }
    }
}

TEST(LanguageTable, findsLanguageAndCatalogueByThePrefixOfACode) {
    const auto inSet = [](int set, const char* code) { return matchLanguage(createRunContext("", "", set), code); };
    for (const auto& [code, found] : {std::pair("pt_BR", "pt"), {"zh_CN", "zh"}, {"english", "en"}}) {
        EXPECT_STREQ(inSet(3, code), found);
        EXPECT_STREQ(createResource(code, false)->getLanguageCode(), found);
    }
    for (const char* code : {"xx", "", "z", "EN"}) {
        EXPECT_STREQ(inSet(4, code), nullptr);
        EXPECT_EQ(createResource(code, false), nullptr);
        EXPECT_STREQ(createResource(code, true)->getLanguageCode(), "en");
    }
    EXPECT_STREQ(inSet(4, "zh_TW"), "zh");
    EXPECT_STREQ(inSet(4, "el"), "el");
    EXPECT_STREQ(inSet(3, "el"), nullptr);
    EXPECT_STREQ(inSet(5, "en"), nullptr);
}

}  // namespace zev::test
