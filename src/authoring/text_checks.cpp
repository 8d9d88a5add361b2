#include "authoring/text_checks.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "authoring/character_checks.h"
#include "authoring/language_guess.h"

namespace zev {

namespace {

bool hasVisibleText(const icu::UnicodeString& text) {
    for (int32_t i = 0; i < text.length(); ++i) {
        if (u_isgraph(text[i])) return true;
    }
    return false;
}

/// Which text each text repeats; its own index for those that repeat none. Of equal texts, those of `original` count as
/// the originals, else the first.
std::vector<std::size_t> findRepetitions(std::span<const SetText> texts, std::string_view original) {
    const auto isOriginal = [&](std::size_t i) {
        return texts[i].file.language && texts[i].file.language->code == original;
    };
    std::map<icu::UnicodeString, std::size_t> originals;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto [known, isNew] = originals.try_emplace(texts[i].text, i);
        if (!isNew && isOriginal(i) && !isOriginal(known->second)) known->second = i;
    }
    std::vector<std::size_t> repeated;
    for (const SetText& text : texts) repeated.push_back(originals[text.text]);
    return repeated;
}

Findings checkLanguage(const SetText& text) {
    const LanguageProfile* language = text.file.language;
    if (language == nullptr) return {};
    if (!isWrittenIn(*language, text.text)) {
        return {{text.namedFile(), {}, Severity::error, "script", "most letters are not of the language's script"}};
    }
    const std::string better = clearlyBetterLanguage(text.text, language->code);
    if (better.empty()) return {};
    return {{text.namedFile(),
             {},
             Severity::warning,
             "language",
             "most of it reads like " + better + "; are two files swapped?"}};
}

}  // namespace

Findings checkTexts(std::span<const SetText> texts, const std::string& standIn) {
    Findings findings;
    const auto add = [&](Findings more) { std::ranges::move(more, std::back_inserter(findings)); };
    const auto repeated = findRepetitions(texts, standIn.empty() ? "en" : standIn);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const SetText& text = texts[i];
        const SetText& original = texts[repeated[i]];
        if (!hasVisibleText(text.text)) {
            // A product may have nothing to say there, but the file must be there.
            const bool mayBeEmpty = text.file.kind == TextKind::information;
            if (!mayBeEmpty) add({{text.namedFile(), {}, Severity::error, "empty", "empty"}});
            continue;
        }
        const bool standsIn = original.file.kind == text.file.kind && original.file.language != nullptr &&
                              original.file.language->code == standIn;
        if (&original == &text) {
            add(checkLanguage(text));
        } else if (!standsIn) {
            add({{text.namedFile(), {}, Severity::warning, "same-text", "the same text as " + original.file.name}});
        }
        if (text.file.kind == TextKind::agreement && !text.text.endsWith(u"\n")) {
            add({{text.namedFile(),
                  {},
                  Severity::warning,
                  "last-line",
                  "no line feed at the end; the information begins in its last line"}});
        }
        add(checkCharacters(text.namedFile(), text.text, text.file.language,
                            text.file.kind == TextKind::notices ? Readers::ofCopy : Readers::ofScreenAndCopy));
    }
    return findings;
}

}  // namespace zev
