#include "authoring/text_comparison.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "authoring/text_facts.h"
#include "console/terminal_columns.h"

namespace zev {

namespace {

// Translators join or split a paragraph now and then; real translations were seen to differ by up to 5 %.
constexpr double mostStructuralDifference = 0.15;     ///< of the paragraphs of the original
constexpr std::size_t leastStructuralDifference = 3;  ///< paragraphs; of a short text, one is many per cent already

constexpr int64_t leastColumns = 120;  ///< of a passage to be judged: shorter ones are headings, names and addresses
// Of the words of a sentence, a third to a half are function words of its language. A translation has some of those of
// the original, in titles that it quotes. A list of names has hardly any.
constexpr double mostFunctionWords = 0.20;  ///< of the original's language, in a translated passage
constexpr double mostInListOfNames = 0.10;

constexpr std::size_t mostListed = 3;  ///< facts in a message

struct TrimmedLine {
    int32_t begin;  ///< in code units
    icu::UnicodeString text;
};

std::vector<TrimmedLine> trimmedLines(const icu::UnicodeString& text) {
    std::vector<TrimmedLine> lines;
    for (int32_t begin = 0, next; begin < text.length(); begin = next) {
        int32_t end = lineEnd(text, begin);
        next = end + 1;
        while (begin < end && u_isUWhiteSpace(text[begin])) ++begin;
        while (begin < end && u_isUWhiteSpace(text[end - 1])) --end;
        lines.push_back({begin, text.tempSubStringBetween(begin, end)});
    }
    return lines;
}

/// A paragraph is the text between two empty lines.
std::size_t countParagraphs(const icu::UnicodeString& text) {
    std::size_t count = 0;
    bool isOpen = false;
    for (const TrimmedLine& line : trimmedLines(text)) {
        if (!line.text.isEmpty() && !isOpen) ++count;
        isOpen = !line.text.isEmpty();
    }
    return count;
}

/// Text that belongs together, without its line ends.
struct Passage {
    int32_t begin;  ///< in code units
    icu::UnicodeString text;
    int64_t columns;
};

/// A line of more than `leastColumns` is a passage by itself. Shorter ones are wrapped: up to the next empty line, they
/// are one passage. Shorter passages are left out.
std::vector<Passage> longPassagesOf(const icu::UnicodeString& text) {
    std::vector<Passage> passages;
    bool isOpen = false;
    for (const auto& [begin, line] : trimmedLines(text)) {
        const int64_t columns = terminalColumns(line);
        if (columns > leastColumns || (!isOpen && columns > 0)) {
            passages.push_back({begin, line, columns});
        } else if (columns > 0) {
            passages.back().text.append(u' ').append(line);
            passages.back().columns += columns;
        }
        isOpen = columns > 0 && columns <= leastColumns;
    }
    std::erase_if(passages, [](const Passage& passage) { return passage.columns <= leastColumns; });
    return passages;
}

using Words = std::unordered_set<std::u16string_view>;

Words functionWordSet(std::string_view code) {
    Words set;
    const std::u16string_view words = functionWordsOf(code);
    for (std::size_t begin = 0, end; begin < words.size(); begin = end + 1) {
        end = std::min(words.find(u' ', begin), words.size());
        set.insert(words.substr(begin, end - begin));
    }
    return set;
}

/// The share of the words of a passage that are in a set. In Chinese and Japanese, each character counts as a word. A
/// word after a parenthesis is not looked up, because it is the letter of an item or another ending of the word before
/// it.
double shareOf(const Words& set, const icu::UnicodeString& passage) {
    constexpr char16_t firstEastAsian = 0x2E80;
    const auto isLetter = [&](int32_t i) { return passage.charAt(i) < firstEastAsian && u_isalpha(passage.charAt(i)); };
    std::size_t all = 0, found = 0;
    std::u16string word;
    for (int32_t i = 0; i < passage.length(); ++i) {
        if (passage[i] >= firstEastAsian) ++all;
        if (!isLetter(i)) continue;
        const bool isInParentheses = i > 0 && passage[i - 1] == u'(';
        for (word.clear(); isLetter(i); ++i) word += static_cast<char16_t>(u_tolower(passage[i]));
        --i;
        ++all;
        if (!isInParentheses && set.contains(word)) ++found;
    }
    return all == 0 ? 0 : static_cast<double>(found) / static_cast<double>(all);
}

/// The facts of one text that the other lacks, in the order of the text.
std::vector<const Fact*> lackedBy(const Facts& other, const Facts& facts) {
    std::set<std::string_view> localNames;
    for (const auto& [name, fact] : other) localNames.insert(fact.localNames.begin(), fact.localNames.end());
    std::vector<const Fact*> lacked;
    for (const auto& [name, fact] : facts) {
        const bool isLocalised =
            std::ranges::any_of(fact.localNames, [&](const auto& local) { return localNames.contains(local); });
        if (!other.contains(name) && !isLocalised) lacked.push_back(&fact);
    }
    std::ranges::sort(lacked, {}, &Fact::first);
    return lacked;
}

std::string shownFacts(const std::vector<const Fact*>& facts) {
    std::string list;
    for (std::size_t i = 0; i < std::min(facts.size(), mostListed); ++i) list += (i > 0 ? ", " : "") + facts[i]->shown;
    return facts.size() > mostListed ? list + " and " + std::to_string(facts.size() - mostListed) + " more" : list;
}

/// Tells which passages of a translation are in the original's language.
class OriginalLanguage {
public:
    OriginalLanguage(const LanguageProfile& original, const LanguageProfile& translation)
        : original_(original), translation_(translation), words_(functionWordSet(original.code)) {
        const Words others = functionWordSet(translation.code);
        const auto without = [](Words words, const Words& excluded) {
            std::erase_if(words, [&](std::u16string_view word) { return excluded.contains(word); });
            return words;
        };
        ownWords_ = without(words_, others);
        translationWords_ = without(others, words_);
    }

    /// Whether a passage reads like it. Two languages in Latin script are told apart by the function words that only
    /// one of them has.
    [[nodiscard]] bool readsLikeIt(const icu::UnicodeString& passage) const {
        if (!words_.empty()) {
            return shareOf(words_, passage) > mostFunctionWords &&
                   shareOf(ownWords_, passage) > shareOf(translationWords_, passage);
        }
        const auto isWrittenIn = [&](const LanguageProfile& language) {
            return scriptFit(language, passage) == ScriptFit::most;
        };
        const bool isChinese = original_.scripts.front() == USCRIPT_HAN;  // Japanese and Korean have such letters too
        return isWrittenIn(original_) && !(isChinese && isWrittenIn(translation_));
    }

    /// Whether a passage of the original is prose. A list of names needs no translation.
    [[nodiscard]] bool isProse(const icu::UnicodeString& passage) const {
        return words_.empty() || shareOf(words_, passage) > mostInListOfNames;
    }

private:
    const LanguageProfile& original_;
    const LanguageProfile& translation_;
    const Words words_;
    Words ownWords_, translationWords_;  ///< those that only one of the two languages has
};

}  // namespace

TextComparison::TextComparison(const SetText& original)
    : original_(original),
      paragraphs_(countParagraphs(original.text)),
      facts_(factsOf(original.text, original.file.language->code)) {
    for (const Passage& passage : longPassagesOf(original.text)) longPassages_.insert(passage.text);
}

Findings TextComparison::compare(const SetText& translation) const {
    Findings findings = compareStructure(translation);
    append(findings, findUntranslated(translation));
    append(findings, compareFacts(translation));
    return findings;
}

Findings TextComparison::compareStructure(const SetText& translation) const {
    const std::size_t count = countParagraphs(translation.text);
    const std::size_t difference = std::max(count, paragraphs_) - std::min(count, paragraphs_);
    const bool isLarge = static_cast<double>(difference) > mostStructuralDifference * static_cast<double>(paragraphs_);
    if (!isLarge || difference < leastStructuralDifference) return {};
    return {translation.finding(
        Severity::warning, "structure",
        counted(count, "paragraph") + ", " + original_.file.name + " has " + std::to_string(paragraphs_))};
}

Findings TextComparison::findUntranslated(const SetText& translation) const {
    const OriginalLanguage language(*original_.file.language, *translation.file.language);
    const std::vector<Passage> passages = longPassagesOf(translation.text);
    Findings findings;
    const auto find = [&](const auto& isUntranslated, const std::string& message) {
        const auto count = std::ranges::count_if(passages, isUntranslated);
        if (count == 0) return;
        findings.push_back(translation.findingAt(
            std::ranges::find_if(passages, isUntranslated)->begin, Severity::warning, "untranslated",
            std::to_string(count) + " of " + counted(passages.size(), "long paragraph") + message));
    };
    const auto isInOriginalsLanguage = [&](const Passage& passage) {
        const bool isCopied = longPassages_.contains(passage.text) && language.isProse(passage.text);
        return isCopied || language.readsLikeIt(passage.text);
    };
    find(isInOriginalsLanguage, " not translated from " + original_.file.name);

    const std::string code = translation.file.language->code;
    const auto isInOtherChinese = [&](const Passage& passage) { return !betterChinese(passage.text, code).empty(); };
    // If the whole text is in it, there is a finding that says so.
    if (!betterChinese(translation.text, code).empty()) return findings;
    find(isInOtherChinese, code == "zh" ? " in Traditional Chinese" : " in Simplified Chinese");
    return findings;
}

Findings TextComparison::compareFacts(const SetText& translation) const {
    const Facts facts = factsOf(translation.text, translation.file.language->code);
    const auto added = lackedBy(facts_, facts), missing = lackedBy(facts, facts_);
    Findings findings;
    if (!missing.empty()) {
        const std::string line = std::to_string(positionAt(original_.text, missing.front()->first).line);
        const char* const which = missing.size() == 1 ? " has it in line " : " has the first of them in line ";
        findings.push_back(translation.finding(
            Severity::warning, "facts", "lacks " + shownFacts(missing) + ": " + original_.file.name + which + line));
    }
    if (!added.empty()) {
        findings.push_back(translation.findingAt(added.front()->first, Severity::warning, "facts",
                                                 shownFacts(added) + ": not in " + original_.file.name));
    }
    return findings;
}

}  // namespace zev
