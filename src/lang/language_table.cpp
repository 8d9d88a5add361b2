#include "lang/language_table.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "app/run_context.h"
#include "app/run_options.h"

namespace zev {

namespace {

constexpr std::array<LanguageEntry, 17> languageTable4{{
    {"cs", "Czech"},
    {"de", "German"},
    {"el", "Greek"},
    {"en", "English"},
    {"es", "Spanish"},
    {"fr", "French"},
    {"it", "Italian"},
    {"ja", "Japanese"},
    {"ko", "Korean"},
    {"lt", "Lithuanian"},
    {"pl", "Polish"},
    {"pt", "Portuguese"},
    {"ru", "Russian"},
    {"sl", "Slovenian"},
    {"tr", "Turkish"},
    {"zh", "Chinese"},
    {"zh_TW", "Chinese_TW"},
}};

constexpr auto languageTable3 = [] {
    constexpr std::array<std::string_view, 4> onlyInSet4{"el", "lt", "ru", "sl"};
    std::array<LanguageEntry, languageTable4.size() - onlyInSet4.size()> table{};
    std::ranges::copy_if(languageTable4, table.begin(), [&](const LanguageEntry& language) {
        return std::ranges::find(onlyInSet4, language.code) == onlyInSet4.end();
    });
    return table;
}();
static_assert(languageTable3.size() == 13, "a language that is not for the smaller set belongs to onlyInSet4");

std::span<const LanguageEntry> activeTable(const RunContext& context) {
    switch (context.languageSet) {
        case alternativeLanguageSet: return languageTable3;
        case defaultLanguageSet: return languageTable4;
        default: return {};
    }
}

}  // namespace

unsigned languageCount(const RunContext& context) { return static_cast<unsigned>(activeTable(context).size()); }

const LanguageEntry* languageEntry(const RunContext& context, unsigned index) {
    return index < languageCount(context) ? &activeTable(context)[index] : nullptr;
}

const char* matchLanguage(const RunContext& context, const char* language) {
    const auto table = activeTable(context);
    const auto match = std::ranges::find_if(
        table, [&](const LanguageEntry& entry) { return std::string_view(language).starts_with(entry.code); });
    return match != table.end() ? match->code : nullptr;
}

}  // namespace zev
