#include "authoring/character_checks.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "authoring/double_encoding.h"
#include "console/terminal_columns.h"

namespace zev {

namespace {

using namespace std::string_view_literals;

struct CharacterRule {
    const char* kind;
    Severity severity;
    const char* name;
    const char* effect;
    std::u16string_view ranges;  ///< the first and the last unit of each
};

constexpr auto error = Severity::error;
constexpr auto warning = Severity::warning;

/// The first rule that has a character is its rule.
constexpr CharacterRule rules[]{
    {"nul", error, "U+0000", "the screen ends here, the copy does not", u"\x0\x0"sv},
    {"u-ffff", error, "U+FFFF", "the text ends here, on the screen and in the copy", u"\xFFFF\xFFFF"sv},
    {"unpaired-surrogate", error, "unpaired surrogate", "half a character, shown as U+FFFD", u"\xD800\xDFFF"sv},
    {"lost-character", warning, "U+FFFD", "a character was lost before the text came here", u"\xFFFD\xFFFD"sv},
    {"tab", warning, "tab", "counted as one column, shown as up to eight", u"\x9\x9"sv},
    {"vertical-tab", warning, "vertical tab", "goes down where it stands, and the page scrolls", u"\xB\xB"sv},
    {"form-feed", warning, "form feed", "clears the screen or goes down, and the page scrolls", u"\xC\xC"sv},
    {"escape", warning, "escape", "the terminal takes what follows for a command", u"\x1B\x1B\x9B\x9B"sv},
    {"next-line", warning, "U+0085", "no end of a line for zev, perhaps one for the terminal", u"\x85\x85"sv},
    {"line-separator", warning, "U+2028", "no end of a line for zev", u"\x2028\x2028"sv},
    {"paragraph-separator", warning, "U+2029", "no end of a paragraph for zev", u"\x2029\x2029"sv},
    {"control", warning, "control character", "obeyed by the terminal, or counted and not shown",
     u"\x1\x8\xE\x1F\x7F\x9F"sv},
    {"byte-order-mark", warning, "byte order mark in the text", "counted and not shown", u"\xFEFF\xFEFF"sv},
    {"soft-hyphen", warning, "soft hyphen", "shown in the middle of a line, or counted and not shown", u"\xAD\xAD"sv},
    {"bidirectional-control", warning, "bidirectional control",
     "turns the order of what follows, or is counted and not shown",
     u"\x61C\x61C\x200E\x200F\x202A\x202E\x2066\x2069"sv},
};

constexpr CharacterRule unassignedRule{
    "unassigned", warning, "character that Unicode does not define", "shown as a box, or as each font likes", {}};

constexpr CharacterRule invisibleRule{"invisible", warning, "invisible character", "counted and not shown", {}};

constexpr CharacterRule wideRule{"wide-character",
                                 warning,
                                 "wide character",
                                 "counted as one column and shown as two, so its line may overflow",
                                 {}};

struct Sighting {
    const CharacterRule* rule = nullptr;
    int32_t offset = 0;  ///< of the first
    std::size_t count = 0;
};

const CharacterRule* ruleOf(UChar32 character, bool countsOneColumn) {
    if (character == u'\n' || character == u'\r' || (character >= u' ' && character <= u'~')) return nullptr;
    for (const CharacterRule& rule : rules) {
        for (std::size_t i = 0; i < rule.ranges.size(); i += 2) {
            if (character >= rule.ranges[i] && character <= rule.ranges[i + 1]) return &rule;
        }
    }
    if ((U_GET_GC_MASK(character) & (U_GC_CN_MASK | U_GC_CO_MASK)) != 0) return &unassignedRule;
    if (u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT)) return &invisibleRule;
    return countsOneColumn && terminalColumns(character) == 2 ? &wideRule : nullptr;
}

std::string countedName(const std::string& name, std::size_t count) {
    return count > 1 ? name + " (x" + std::to_string(count) + ")" : name;
}

/// Carriage returns: those of line ends, whose lines nobody wants listed, and others.
Findings checkCarriageReturns(const NamedFile& file, const icu::UnicodeString& text) {
    std::size_t atLineEnds = 0, elsewhere = 0;
    int32_t first = 0;
    for (int32_t i = 0; i < text.length(); ++i) {
        if (text[i] != u'\r') continue;
        if (text.charAt(i + 1) == u'\n') {
            ++atLineEnds;
        } else if (elsewhere++ == 0) {
            first = i;
        }
    }
    Findings findings;
    if (atLineEnds > 0) {
        findings.push_back({file,
                            {},
                            warning,
                            "cr-lf",
                            "CR LF line ends (x" + std::to_string(atLineEnds) + "); the copies get them too"});
    }
    if (elsewhere > 0) {
        findings.push_back(
            {file, positionAt(text, first), warning, "carriage-return",
             countedName("CR in a line", elsewhere) + ": what follows is shown over what stands before"});
    }
    return findings;
}

Findings checkDoubleEncoding(const NamedFile& file, const icu::UnicodeString& text, const LanguageProfile* language) {
    const DoubleEncoding found = findDoubleEncoding(text, language);
    if (found.lines == 0) return {};
    const std::string name = std::string("UTF-8 that was read as ") + found.codePage + " and encoded again";
    return {
        {file, {found.firstLine, 1}, error, "double-encoding", countedName(name, found.lines) + ": zev shows it so"}};
}

}  // namespace

Findings checkCharacters(const NamedFile& file, const icu::UnicodeString& text, const LanguageProfile* language,
                         Readers readers) {
    const bool countsOneColumn = language != nullptr && !language->doubleWidth;
    std::vector<Sighting> sightings;
    int32_t next = 0;
    for (int32_t i = 0; i < text.length(); i = next) {
        const UChar32 character = text.char32At(i);
        next = i + U16_LENGTH(character);
        const CharacterRule* rule = ruleOf(character, countsOneColumn);
        if (rule == nullptr || (readers == Readers::ofCopy && rule->severity == warning)) continue;
        auto known = std::ranges::find(sightings, rule, &Sighting::rule);
        if (known == sightings.end()) known = sightings.insert(known, {rule, i, 0});
        ++known->count;
    }

    Findings findings = checkCarriageReturns(file, text);
    std::ranges::move(checkDoubleEncoding(file, text, language), std::back_inserter(findings));
    for (const auto& [rule, first, count] : sightings) {
        findings.push_back({file, positionAt(text, first), rule->severity, rule->kind,
                            countedName(rule->name, count) + ": " + rule->effect});
    }
    std::ranges::stable_sort(findings, {}, &Finding::position);
    return findings;
}

}  // namespace zev
