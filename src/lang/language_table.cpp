#include "lang/language_table.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "app/run_context.h"
#include "app/run_options.h"
#include "lang/languages.h"

namespace zev {

namespace {

struct Row {
    LanguageEntry language;
    bool inSmallerSet;
};

constexpr Row rows[]{
#define ROW(code, englishName, inSmallerSet) {{#code, englishName}, inSmallerSet},
    ZEV_LANGUAGES(ROW)
#undef ROW
};

template <std::size_t size>
constexpr std::array<LanguageEntry, size> tableOf(bool (*has)(const Row&)) {
    std::array<LanguageEntry, size> table{};
    auto* next = table.begin();
    for (const Row& row : rows) {
        if (has(row)) *next++ = row.language;
    }
    return table;
}

constexpr auto languageTable4 = tableOf<std::size(rows)>([](const Row&) { return true; });
constexpr auto languageTable3 =
    tableOf<std::ranges::count(rows, true, &Row::inSmallerSet)>([](const Row& row) { return row.inSmallerSet; });
static_assert(languageTable3.size() == 13, "the smaller set is closed");

std::span<const LanguageEntry> activeTable(const RunContext& context) { return languagesOfSet(context.languageSet); }

}  // namespace

std::span<const LanguageEntry> languagesOfSet(int languageSet) {
    switch (languageSet) {
        case alternativeLanguageSet: return languageTable3;
        case defaultLanguageSet: return languageTable4;
        default: return {};
    }
}

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
