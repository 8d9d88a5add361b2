#include <gtest/gtest.h>
#include <unicode/regex.h>

#include <array>
#include <bit>
#include <cctype>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "app/run_context.h"
#include "app/run_options.h"
#include "lang/catalogues/catalogues.h"
#include "lang/environment_locale.h"
#include "lang/language_table.h"
#include "lang/resource_factory.h"

namespace zev::test {

const CatalogueTexts* const all[]{&catalogues::cs, &catalogues::de,   &catalogues::el, &catalogues::en, &catalogues::es,
                                  &catalogues::fr, &catalogues::it,   &catalogues::ja, &catalogues::ko, &catalogues::lt,
                                  &catalogues::pl, &catalogues::pt,   &catalogues::ru, &catalogues::sl, &catalogues::tr,
                                  &catalogues::zh, &catalogues::zh_TW};

/// A catalogue's stored texts by slot number.
std::array<const char*, 23> slotsOf(const CatalogueTexts& texts) {
    return std::bit_cast<std::array<const char*, 23>>(texts);
}

bool isFound(const icu::UnicodeString& pattern, const char* text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString input(text, "ISO-8859-1");
    return icu::RegexMatcher(pattern, input, 0, status).find(status);
}

/// "<code> <slot>, " of each stored text in which `pattern` is found.
std::string textsWith(const icu::UnicodeString& pattern) {
    std::string found;
    for (const CatalogueTexts* texts : all) {
        const auto slots = slotsOf(*texts);
        for (std::size_t slot = 1; slot < slots.size(); ++slot) {
            if (isFound(pattern, slots[slot])) found += slots[0] + (" " + std::to_string(slot)) + ", ";
        }
    }
    return found;
}

TEST(Catalogue, answersEverySlotWithItsText) {
    using R = Resource;
    icu::UnicodeString (R::*const operations[])() const = {
        &R::NUMERIC1_KEY,    &R::TITLE_KEY,      &R::INSTRUCTIONS_KEY, &R::ACCEPT_KEY,      &R::DECLINE_KEY,
        &R::PRINT_KEY,       &R::YES_KEY,        &R::NO_KEY,           &R::DECLINED_KEY,    &R::CONFIRMDECLINE_KEY,
        &R::CLILANGMENU_KEY, &R::CLILANGMSG_KEY, &R::CLITITLE_KEY,     &R::CLIINTROMSG_KEY, &R::CLICONTMSG_KEY,
        &R::CLICFMMSG_KEY,   &R::CLIACCMSG_KEY,  &R::NUMERIC2_KEY,     &R::NUMERIC3_KEY,    &R::PRINTERRMSG_KEY,
        &R::LANGNAME_KEY,    &R::NONVURTERMS_KEY};
    setenv("LC_ALL", "en_US.ISO-8859-1", 1);
    adoptEnvironmentLocale();
    const auto endsInSpace = [](std::string_view text) { return std::isspace(text.back()) != 0; };
    for (const CatalogueTexts* texts : all) {
        const auto slots = slotsOf(*texts);
        const auto resource = createResource(slots[0], false);
        for (std::size_t slot = 1; slot < slots.size(); ++slot) {
            SCOPED_TRACE(testing::Message() << slots[0] << " slot " << slot);
            const auto operation = operations[slot - 1];
            EXPECT_EQ((resource.get()->*operation)(), icu::UnicodeString(slots[slot], "ISO-8859-1"));
            const bool endsAsInEnglish = endsInSpace(slots[slot]) == endsInSpace(slotsOf(catalogues::en)[slot]);
            EXPECT_TRUE(endsAsInEnglish || slots[slot] == std::string_view("UNUSED"));
        }
    }
}

TEST(Catalogue, showsItselfInEveryCodePageOfItsLanguage) {
    const std::pair<std::string, std::vector<const char*>> rows[]{
        {"en ", {"US-ASCII"}},
        {"cs pl sl ", {"ISO-8859-2", "windows-1250"}},
        {"de es fr it pt ", {"ISO-8859-1", "ISO-8859-15"}},
        {"el ", {"ISO-8859-7"}},
        {"ja ", {"EUC-JP", "Shift_JIS"}},
        {"ko ", {"EUC-KR"}},
        {"lt ", {"ISO-8859-13", "windows-1257"}},
        {"ru ", {"KOI8-R", "ISO-8859-5", "windows-1251"}},
        {"tr ", {"ISO-8859-9"}},
        {"zh ", {"GB2312", "GBK"}},
        {"zh_TW ", {"Big5"}},
    };
    const auto expectSurvival = [](const icu::UnicodeString& text, const char* codePage) {
        std::array<char, 2000> bytes;
        const auto length = text.extract(0, text.length(), bytes.data(), bytes.size(), codePage);
        EXPECT_EQ(icu::UnicodeString(bytes.data(), length, codePage), text) << codePage;
    };
    for (const CatalogueTexts* texts : all) {
        const auto slots = slotsOf(*texts);
        for (const auto& [codes, codePages] : rows) {
            if (codes.find(slots[0] + std::string(" ")) == codes.npos) continue;
            for (const unsigned slot : {6, 15, 16, 17, 20, 21, 22}) {
                const icu::UnicodeString text = icu::UnicodeString(slots[slot], "US-ASCII").unescape();
                for (const char* codePage : codePages) expectSurvival(text, codePage);
            }
        }
    }
}

TEST(Catalogue, keepsRawBytesInTextsOfFiveLanguages) {
    const icu::UnicodeString places = u"(de|es|fr|it|pt) ([23789]|10|11), ";
    const std::string raw = textsWith(u"[\\x80-\\xFF]"), escaped = textsWith(u"\\\\u");
    EXPECT_TRUE(isFound(u"^(" + places + u")+$", raw.c_str())) << raw;
    EXPECT_FALSE(isFound(places, escaped.c_str())) << escaped;
}

TEST(Catalogue, keepsTheFaultsOfTheCzechTexts) {
    EXPECT_EQ(textsWith(u"u009[AE]"), "cs 2, cs 3, cs 9, cs 10, cs 12, cs 14, ");
    EXPECT_EQ(textsWith(u"u009A"), "cs 14, ");
    EXPECT_EQ(textsWith(u"u009[AE].*u01(61|7E)|u01(61|7E).*u009[AE]"), "");
    const char* const menu = slotsOf(catalogues::cs)[11];
    for (const auto* pattern : {u"u00E8", u"u00C8", u"u00EC"}) EXPECT_TRUE(isFound(pattern, menu));
    EXPECT_FALSE(isFound(u"u01(0C|0D|1B)", menu)) << "C, c and e with caron";
}

TEST(Catalogue, keepsItsNumbers) {
    for (const CatalogueTexts* texts : all) {
        const auto slots = slotsOf(*texts);
        const std::string numbers = std::string(slots[0]) + ' ' + slots[1] + ' ' + slots[18] + ' ' + slots[19];
        EXPECT_TRUE(
            isFound(u"^(cs|de|en|es|fr|it|pl|pt|tr) 10 10 16$|^(el|lt|ru|sl) 12 10 16$|^(ja|ko|zh|zh_TW) 12 18 16$",
                    numbers.c_str()))
            << numbers;
    }
}

TEST(Catalogue, keepsTheMenusThatNoOneSees) {
    EXPECT_EQ(textsWith(u"^UNUSED$"), "el 11, el 12, el 13, el 14, lt 11, lt 12, lt 13, lt 14, "
                                      "ru 11, ru 12, ru 13, ru 14, sl 11, sl 12, sl 13, sl 14, ");
    EXPECT_EQ(
        textsWith(u"^Software Licensing Agreement\n1. English\n2. Danish\n3. Dutch\n4. Finnish\n5. French\n"
                  u"6. German\n7. Italian\n8. Norwegian\n9. Portuguese\n10. Russian\n11. Spanish\n12. Swedish\n\\z"),
        "ja 11, ko 11, zh 11, zh_TW 11, ");
    EXPECT_EQ(textsWith(u"^.*\n1\\. \\S* \n([2-9]\\. \\S*\n){8}\\z"),
              "cs 11, de 11, en 11, es 11, fr 11, it 11, pl 11, pt 11, tr 11, ");
    EXPECT_EQ(textsWith(u"^Please enter the number that corresponds to the language you prefer.\n\\z"),
              "en 12, ja 12, ko 12, zh 12, zh_TW 12, ");
    EXPECT_EQ(textsWith(u"^Software Licensing Agreement\\z"), "en 13, ja 13, ko 13, zh 13, zh_TW 13, ");
}

TEST(Catalogue, keepsTheBracketThatEndsTheJapaneseContinuePrompt) { EXPECT_EQ(textsWith(u"u300D\n\\z"), "ja 15, "); }

TEST(Catalogue, asksForTheNumbersThatTheDialogueUnderstands) {
    setenv("LC_ALL", "C", 1);
    adoptEnvironmentLocale();
    const auto expectNumbers = [](const icu::UnicodeString& text, std::initializer_list<const char16_t*> numbers) {
        for (const char16_t* number : numbers) EXPECT_GE(text.indexOf(u'"' + icu::UnicodeString(number) + u'"'), 0);
    };
    const RunContext context("", "", defaultLanguageSet);
    for (unsigned index = 0; const LanguageEntry* language = languageEntry(context, index); ++index) {
        SCOPED_TRACE(language->code);
        const auto resource = createResource(language->code, false);
        EXPECT_STREQ(resource->getLanguageCode(), language->code);
        const icu::UnicodeString prompt = resource->CLICONTMSG_KEY().unescape();
        expectNumbers(prompt, {u"1", u"2", u"99"});
        expectNumbers(resource->CLICFMMSG_KEY().unescape(), {u"1", u"2"});
        expectNumbers(resource->CLIACCMSG_KEY().unescape(), {u"1", u"2"});
        EXPECT_GE(icu::UnicodeString(u".。」").indexOf(prompt[prompt.length() - 2]), 0) << "what the choices follow";
        EXPECT_GE(resource->DECLINED_KEY().indexOf(u"VUR"), 0);
        EXPECT_GE(resource->NONVURTERMS_KEY().indexOf(u"VUR"), 0);
    }
}

TEST(Catalogue, isFoundByThePrefixOfACode) {
    const std::pair<const char*, const char*> rows[]{
        {"pt_BR", "pt"}, {"zh_TW", "zh_TW"}, {"zh_CN", "zh"}, {"english", "en"}, {"de", "de"}};
    for (const auto& [code, found] : rows) EXPECT_STREQ(createResource(code, false)->getLanguageCode(), found);
    for (const char* code : {"nl", "", "z", "EN"}) {
        EXPECT_EQ(createResource(code, false), nullptr);
        EXPECT_STREQ(createResource(code, true)->getLanguageCode(), "en");
    }
}

TEST(LanguageTable, matchesTheFirstCodeThatBeginsTheLanguage) {
    const std::tuple<int, const char*, const char*> rows[]{{4, "el", "el"},    {3, "el", nullptr}, {4, "zh_TW", "zh"},
                                                           {3, "pt_BR", "pt"}, {4, "", nullptr},   {4, "e", nullptr},
                                                           {4, "EN", nullptr}, {4, "nl", nullptr}, {5, "en", nullptr}};
    for (const auto& [set, language, code] : rows) {
        EXPECT_STREQ(matchLanguage(RunContext("", "", set), language), code) << language << " in set " << set;
    }
}

}  // namespace zev::test
