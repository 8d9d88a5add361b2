#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <cstring>
#include <set>
#include <string_view>
#include <tuple>

#include "app/run_context.h"
#include "app/run_options.h"
#include "lang/catalogues/catalogues.h"
#include "lang/environment_locale.h"
#include "lang/language_table.h"
#include "lang/resource_factory.h"

namespace zev::test {

/// The texts of a catalogue by slot number.
using Slots = std::array<StoredText, 23>;

const CatalogueTexts* const all[]{&catalogues::cs, &catalogues::de,   &catalogues::el, &catalogues::en, &catalogues::es,
                                  &catalogues::fr, &catalogues::it,   &catalogues::ja, &catalogues::ko, &catalogues::lt,
                                  &catalogues::pl, &catalogues::pt,   &catalogues::ru, &catalogues::sl, &catalogues::tr,
                                  &catalogues::zh, &catalogues::zh_TW};

Slots slotsOf(const CatalogueTexts& texts) { return std::bit_cast<Slots>(texts); }

TEST(Catalogue, answersEverySlotWithItsTextInItsStoredForm) {
    using R = Resource;
    icu::UnicodeString (R::*const operations[])() const = {
        &R::NUMERIC1_KEY,    &R::TITLE_KEY,      &R::INSTRUCTIONS_KEY, &R::ACCEPT_KEY,      &R::DECLINE_KEY,
        &R::PRINT_KEY,       &R::YES_KEY,        &R::NO_KEY,           &R::DECLINED_KEY,    &R::CONFIRMDECLINE_KEY,
        &R::CLILANGMENU_KEY, &R::CLILANGMSG_KEY, &R::CLITITLE_KEY,     &R::CLIINTROMSG_KEY, &R::CLICONTMSG_KEY,
        &R::CLICFMMSG_KEY,   &R::CLIACCMSG_KEY,  &R::NUMERIC2_KEY,     &R::NUMERIC3_KEY,    &R::PRINTERRMSG_KEY,
        &R::LANGNAME_KEY,    &R::NONVURTERMS_KEY};
    setenv("LC_ALL", "en_US.ISO-8859-1", 1);
    adoptEnvironmentLocale();
    for (const CatalogueTexts* texts : all) {
        const Slots slots = slotsOf(*texts);
        const auto isOneOf = [&](const char* codes) { return std::strstr(codes, slots[0]) != nullptr; };
        const auto resource = createResource(slots[0], false);
        std::set<std::size_t> raw, faulty;
        for (std::size_t slot = 1; slot < slots.size(); ++slot) {
            SCOPED_TRACE(testing::Message() << slots[0] << " slot " << slot);
            const std::string_view bytes = static_cast<const char*>(slots[slot]);
            const auto operation = operations[slot - 1];
            EXPECT_EQ((resource.get()->*operation)(), icu::UnicodeString(slots[slot], "ISO-8859-1"));
            if (std::ranges::any_of(bytes, [](char byte) { return (byte & 0x80) != 0; })) raw.insert(slot);
            const bool isFaulty = bytes.find("\\u009A") != bytes.npos || bytes.find("\\u009E") != bytes.npos;
            if (isFaulty) faulty.insert(slot);
            EXPECT_FALSE(isFaulty && (bytes.find("\\u0161") != bytes.npos || bytes.find("\\u017E") != bytes.npos));
            EXPECT_EQ(bytes == "UNUSED", slot >= 11 && slot <= 14 && isOneOf("el lt ru sl"));
            const std::string_view english = static_cast<const char*>(slotsOf(catalogues::en)[slot]);
            EXPECT_TRUE(bytes == "UNUSED" || !std::isspace(bytes.back()) == !std::isspace(english.back()));
        }
        EXPECT_EQ(faulty.size(), isOneOf("cs") ? 6U : 0U) << "an old fault of the Czech texts";
        EXPECT_EQ(raw.empty(), !isOneOf("es fr de it pt"));
        EXPECT_TRUE(std::ranges::includes(std::set<std::size_t>{2, 3, 7, 8, 9, 10, 11}, raw)) << slots[0];
    }
}

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
