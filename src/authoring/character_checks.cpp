#include "authoring/character_checks.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <span>
#include <string_view>

#include "authoring/text_encoding.h"
#include "console/code_page_loss.h"

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

/// If several rules have a character in their ranges, the first counts.
constexpr CharacterRule rules[]{
    {"nul", error, "U+0000", "what is shown ends here, the copy does not", u"\x0\x0"sv},
    {"u-ffff", error, "U+FFFF", "the text ends here, on the screen and in the copy", u"\xFFFF\xFFFF"sv},
    {"unpaired-surrogate", error, "unpaired surrogate", "half a character, shown as U+FFFD", u"\xD800\xDFFF"sv},
    {"lost-character", warning, "U+FFFD", "an earlier conversion lost a character here", u"\xFFFD\xFFFD"sv},
    {"tab", warning, "tab", "counted as one column, shown as up to eight", u"\x9\x9"sv},
    {"vertical-tab", warning, "vertical tab", "the terminal goes down in the middle of a line, and the page scrolls",
     u"\xB\xB"sv},
    {"form-feed", warning, "form feed", "the terminal clears the screen, or goes down and the page scrolls",
     u"\xC\xC"sv},
    {"escape", warning, "escape", "the terminal takes what follows for a command", u"\x1B\x1B\x9B\x9B"sv},
    {"next-line", warning, "U+0085", "zev ends no line here, the terminal may", u"\x85\x85"sv},
    {"line-separator", warning, "U+2028", "zev ends no line here", u"\x2028\x2028"sv},
    {"paragraph-separator", warning, "U+2029", "zev ends no paragraph here", u"\x2029\x2029"sv},
    {"control", warning, "control character", "the terminal obeys it, or it is counted and not shown",
     u"\x1\x8\xE\x1F\x7F\x9F"sv},
    {"byte-order-mark", warning, "byte order mark in the text", "counted and not shown", u"\xFEFF\xFEFF"sv},
    {"soft-hyphen", warning, "soft hyphen", "shown in the middle of a line, or counted and not shown", u"\xAD\xAD"sv},
    {"bidirectional-control", warning, "bidirectional control",
     "changes the order of what follows, or is counted and not shown",
     u"\x61C\x61C\x200E\x200F\x202A\x202E\x2066\x2069"sv},
};

constexpr CharacterRule unassignedRule{
    "unassigned", warning, "code point without a defined character", "shown as a box, or differently by each font", {}};

constexpr CharacterRule invisibleRule{"invisible", warning, "invisible character", "counted and not shown", {}};

struct Sighting {
    const CharacterRule* rule = nullptr;
    int32_t offset = 0;  ///< of the first
    std::size_t count = 0;
};

const CharacterRule* ruleOf(UChar32 character) {
    if (character == u'\n' || character == u'\r' || (character >= u' ' && character <= u'~')) return nullptr;
    for (const CharacterRule& rule : rules) {
        for (std::size_t i = 0; i < rule.ranges.size(); i += 2) {
            if (character >= rule.ranges[i] && character <= rule.ranges[i + 1]) return &rule;
        }
    }
    if ((U_GET_GC_MASK(character) & (U_GC_CN_MASK | U_GC_CO_MASK)) != 0) return &unassignedRule;
    if (u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT)) return &invisibleRule;
    return nullptr;
}

/// Finds each character that has a rule.
Findings checkEachCharacter(const SetText& text) {
    const bool isOnlyCopied = text.file.kind == TextKind::notices;
    std::vector<Sighting> sightings;
    for (int32_t i = 0, next; i < text.text.length(); i = next) {
        const UChar32 character = text.text.char32At(i);
        next = i + U16_LENGTH(character);
        const CharacterRule* rule = ruleOf(character);
        if (rule == nullptr || (isOnlyCopied && rule->severity == Severity::warning)) continue;
        auto known = std::ranges::find(sightings, rule, &Sighting::rule);
        if (known == sightings.end()) known = sightings.insert(known, {rule, i, 0});
        ++known->count;
    }
    Findings findings;
    for (const auto& [rule, first, count] : sightings) {
        findings.push_back(
            text.findingAt(first, rule->severity, rule->kind, countedName(rule->name, count) + ": " + rule->effect));
    }
    return findings;
}

Findings checkDoubleEncoding(const SetText& text) {
    const DoubleEncoding found = findDoubleEncoding(text.text, text.file.language);
    if (found.lines == 0) return {};
    const std::string name = std::string("UTF-8 that was read as ") + found.codePage + " and encoded again";
    // A single line can be an example, or characters that happen to be UTF-8.
    return {text.findingAt(found.first, found.lines == 1 ? Severity::warning : Severity::error, "double-encoding",
                           countedName(name, found.lines) + ": zev shows the wrong characters")};
}

// Names of people and products from other languages have a few such letters. In a text that was converted from a wrong
// code page, they take the places of the language's own accented letters, which are more than one letter in a hundred.
constexpr std::size_t leastForeignLetters = 20;
constexpr std::size_t leastShareOfForeign = 200;  ///< one in so many letters

/// Latin letters, and the signs that windows-1252 has for the bytes of letters in windows-1250.
bool canBeForeign(UChar32 character) {
    constexpr std::u16string_view signs = u"\u00AF\u00B3\u00B9\u00BF";
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(character, &status) == USCRIPT_LATIN ||
           (character <= 0xFF && signs.find(static_cast<char16_t>(character)) != signs.npos);
}

/// The letters that none of the code pages has.
CodePageLoss foreignLetters(const icu::UnicodeString& text, std::span<const char* const> codePages) {
    CodePageLoss foreign = lossIn(codePages.front(), text);
    std::erase_if(foreign.characters, [](const auto& entry) { return !canBeForeign(entry.first); });
    for (const char* codePage : codePages.subspan(1)) {
        const CodePageLoss lost = lossIn(codePage, text);
        std::erase_if(foreign.characters, [&](const auto& entry) { return !lost.characters.contains(entry.first); });
    }
    return foreign;
}

/// Whether a word has both Latin letters and Greek or Cyrillic ones, many of which look the same. Units of measurement
/// such as "\u03BCm" and "k\u03A9" are no such words.
bool mixesScripts(const icu::UnicodeString& word) {
    constexpr std::u16string_view units = u"\u03BC\u03A9";
    bool isLatin = false, isOther = false;
    for (int32_t i = 0; i < word.length(); ++i) {
        UErrorCode status = U_ZERO_ERROR;
        const UScriptCode script = uscript_getScript(word[i], &status);
        isLatin = isLatin || script == USCRIPT_LATIN;
        isOther =
            isOther || script == USCRIPT_CYRILLIC || (script == USCRIPT_GREEK && units.find(word[i]) == units.npos);
    }
    return isLatin && isOther;
}

Findings checkHomoglyphs(const SetText& text) {
    const icu::UnicodeString& units = text.text;
    std::size_t count = 0;
    int32_t first = 0;
    icu::UnicodeString sample;
    for (int32_t begin = 0, end; begin < units.length(); begin = end + 1) {
        for (end = begin; end < units.length() && u_isalpha(units[end]);) ++end;
        const icu::UnicodeString word = units.tempSubStringBetween(begin, end);
        if (!mixesScripts(word) || count++ > 0) continue;
        first = begin;
        sample = word;
    }
    if (count == 0) return {};
    return {text.findingAt(first, Severity::warning, "homoglyph",
                           countedName("word with letters of two scripts", count) + ", such as \"" + utf8Of(sample) +
                               "\": it looks right, but a search does not find it")};
}

constexpr char16_t firstCombining = 0x300;

/// Finds a letter and an accent for which Unicode has one character.
Findings checkDecomposed(const SetText& text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const composed = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) return {};
    const icu::UnicodeString& units = text.text;
    std::size_t count = 0;
    int32_t first = 0;
    for (int32_t i = 1; i < units.length(); ++i) {
        if (units[i] < firstCombining || !u_isalpha(units[i - 1])) continue;
        if (composed->composePair(units[i - 1], units[i]) < 0) continue;
        if (count++ == 0) first = i - 1;
    }
    if (count == 0) return {};
    return {text.findingAt(first, Severity::warning, "decomposed",
                           countedName("letter and accent as two characters", count) +
                               ": counted as two columns and shown as one. Convert the text to NFC")};
}

}  // namespace

Findings checkCharacters(const SetText& text) {
    Findings findings = checkEachCharacter(text);
    append(findings, checkDoubleEncoding(text));
    if (text.file.kind == TextKind::notices) return findings;
    append(findings, checkHomoglyphs(text));
    append(findings, checkDecomposed(text));
    return findings;
}

Findings checkForeignLetters(const SetText& text) {
    if (text.file.language == nullptr) return {};
    const CodePageLoss foreign = foreignLetters(text.text, text.file.language->codePages);
    const std::size_t count = foreign.count();
    if (count < leastForeignLetters) return {};
    std::size_t letters = 0;
    int32_t first = -1;
    for (int32_t i = 0, next; i < text.text.length(); i = next) {
        const UChar32 character = text.text.char32At(i);
        next = i + U16_LENGTH(character);
        if (u_isalpha(character)) ++letters;
        if (first < 0 && foreign.characters.contains(character)) first = i;
    }
    if (leastShareOfForeign * count <= letters) return {};
    return {text.findingAt(first, Severity::warning, "foreign-letters",
                           countedName("letters that no code page of the language has", count) + ": " + foreign.list() +
                               "; was the text converted from the wrong code page?")};
}

}  // namespace zev
