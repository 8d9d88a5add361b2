#include "authoring/text_checks.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include "authoring/character_checks.h"
#include "authoring/leftovers.h"
#include "authoring/line_checks.h"
#include "authoring/text_comparison.h"
#include "console/terminal_columns.h"

namespace zev {

namespace {

bool hasVisibleText(const icu::UnicodeString& text) {
    for (int32_t i = 0; i < text.length(); ++i) {
        if (u_isgraph(text[i])) return true;
    }
    return false;
}

/// Tells a list of names from sentences. Between the commas and line ends of a list there are few words, and the words
/// of longer names begin with capitals.
class ListOrProse {
public:
    [[nodiscard]] static bool isList(const icu::UnicodeString& text) {
        ListOrProse counts;
        bool isInWord = false;
        for (int32_t i = 0, next; i < text.length(); i = next) {
            const UChar32 character = text.char32At(i);
            next = i + U16_LENGTH(character);
            const bool isLetter = u_isalpha(character);
            if (isLetter) counts.addLetter(character, isInWord);
            if (character == u'\n' || character == u'\t' || endsPart(character)) counts.endPart();
            isInWord = isLetter;
        }
        counts.endPart();
        return leastShareOfProse * counts.inProse_ <= counts.letters_;
    }

private:
    static constexpr int64_t leastShareOfProse =
        3;  ///< one in so many letters; the others are those of headings and names
    static constexpr int64_t leastWordsOfClause = 4;  ///< in a row
    static constexpr int64_t leastWideLetters = 8;    ///< in a row; Chinese and Japanese have no blanks between words

    static bool endsPart(UChar32 character) {
        return u_ispunct(character) && character != u'-' && character != u'\'' && character != u'’';
    }

    void addLetter(UChar32 character, bool isInWord) {
        ++part_.letters;
        if (terminalColumns(character) == 2) ++part_.wideLetters;
        if (isInWord) return;
        ++part_.words;
        if (u_isUUppercase(character)) ++part_.capitalized;
    }

    void endPart() {
        const bool hasCapitals = 2 * part_.capitalized > part_.words;  // most words, as those of a name
        const bool isClause = part_.words >= leastWordsOfClause && !hasCapitals;
        if (isClause || part_.wideLetters >= leastWideLetters) inProse_ += part_.letters;
        letters_ += part_.letters;
        part_ = {};
    }

    struct Part {
        int64_t letters = 0, wideLetters = 0, words = 0, capitalized = 0;
    };
    Part part_;  ///< between two signs of punctuation
    int64_t letters_ = 0, inProse_ = 0;
};

Findings checkLanguage(const SetText& text) {
    const LanguageProfile* language = text.file.language;
    if (language == nullptr) return {};
    const ScriptFit fit = scriptFit(*language, text.text);
    if (fit == ScriptFit::some) {
        return {text.finding(Severity::warning, "script", "most letters are not of the language's script")};
    }
    if (fit == ScriptFit::hardlyAny) {
        // The information can be a list of names; an agreement never is.
        const bool mayBeRight = text.file.kind == TextKind::information && ListOrProse::isList(text.text);
        return {text.finding(mayBeRight ? Severity::warning : Severity::error, "script",
                             "hardly any letter is of the language's script")};
    }
    const std::string better = clearlyBetterLanguage(text.text, language->code);
    if (better.empty()) return {};
    return {text.finding(Severity::warning, "language",
                         "most of the text reads like \"" + better + "\"; are two files swapped?")};
}

/// The texts without the blanks and line feeds at their ends. `build` adds a line feed to some.
std::vector<icu::UnicodeString> trimmed(std::span<const SetText> texts) {
    std::vector<icu::UnicodeString> trimmed;
    for (const SetText& text : texts) trimmed.push_back(icu::UnicodeString(text.text).trim());
    return trimmed;
}

class TextChecks {
public:
    TextChecks(std::span<const SetText> texts, const std::string& standIn)
        : texts_(texts), trimmed_(trimmed(texts)), standIn_(standIn), original_(standIn.empty() ? "en" : standIn) {
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            if (!isOriginal(i) || !hasVisibleText(texts_[i].text)) continue;
            originals_.emplace(texts_[i].file.kind, i);
            comparisons_.emplace(texts_[i].file.kind, texts_[i]);
        }
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            const auto [known, isNew] = firsts_.try_emplace(trimmed_[i], i);
            if (!isNew && isOriginal(i) && !isOriginal(known->second)) known->second = i;
        }
    }

    /// The findings in all texts. A text that stands in for a translation has none that the original has too: they are
    /// corrected, or accepted, in the original.
    [[nodiscard]] Findings check() const {
        std::vector<Findings> findings;
        for (std::size_t i = 0; i < texts_.size(); ++i) findings.push_back(check(i));
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            if (standIn_.empty() || !equalsOriginal(i)) continue;
            const Findings& known = findings[originals_.at(texts_[i].file.kind)];
            const auto key = [](const Finding& f) { return std::tie(f.position, f.message); };
            std::erase_if(findings[i], [&](const Finding& finding) {
                return std::ranges::find(known, key(finding), key) != known.end();
            });
        }
        Findings all;
        for (Findings& each : findings) append(all, std::move(each));
        return all;
    }

private:
    [[nodiscard]] Findings check(std::size_t index) const {
        const SetText& text = texts_[index];
        if (!hasVisibleText(text.text)) {
            // A product may have no information to give, but zev needs the file.
            if (text.file.kind == TextKind::information) return {};
            return {text.finding(Severity::error, "empty", "empty")};
        }
        Findings findings = compare(index);
        append(findings, checkLines(text));
        append(findings, checkCharacters(text));
        append(findings, findLeftovers(text));
        const auto place = [](const Finding& f) { return std::tie(f.position.line, f.position.column); };
        std::ranges::stable_sort(findings, {}, place);
        return findings;
    }

    [[nodiscard]] bool isOriginal(std::size_t index) const {
        const LanguageProfile* language = texts_[index].file.language;
        return language != nullptr && language->code == original_;
    }

    [[nodiscard]] bool hasOriginal(std::size_t index) const {
        const auto original = originals_.find(texts_[index].file.kind);
        return original != originals_.end() && original->second != index;
    }

    /// Whether a text is a copy of the original.
    [[nodiscard]] bool equalsOriginal(std::size_t index) const {
        return hasOriginal(index) && trimmed_[index] == trimmed_[originals_.at(texts_[index].file.kind)];
    }

    /// Compares a text with the others.
    [[nodiscard]] Findings compare(std::size_t index) const {
        const SetText& text = texts_[index];
        const bool isStandIn = equalsOriginal(index);
        Findings findings;
        const std::size_t first = firsts_.at(trimmed_[index]);
        if (first != index && !(isStandIn && !standIn_.empty())) {
            findings.push_back(
                text.finding(Severity::warning, "same-text", "the same text as " + texts_[first].file.name));
        }
        if (isStandIn) return findings;
        append(findings, checkLanguage(text));
        append(findings, checkForeignLetters(text));
        if (hasOriginal(index)) append(findings, comparisons_.at(text.file.kind).compare(text));
        return findings;
    }

    std::span<const SetText> texts_;
    std::vector<icu::UnicodeString> trimmed_;
    const std::string& standIn_;
    const std::string original_;                      ///< the code of its language
    std::map<TextKind, std::size_t> originals_;       ///< the index of the original of each kind
    std::map<TextKind, TextComparison> comparisons_;  ///< with these originals
    std::map<icu::UnicodeString, std::size_t>
        firsts_;  ///< for each text the index of one that equals it, of the original if it does
};

}  // namespace

Findings checkTexts(std::span<const SetText> texts, const std::string& standIn) {
    return TextChecks(texts, standIn).check();
}

}  // namespace zev
