#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <set>

#include "authoring/finding.h"
#include "authoring/set_files.h"
#include "authoring/text_facts.h"

namespace zev {

/// Compares translations with one original.
class TextComparison {
public:
    /// `original` has a language, and outlives this.
    explicit TextComparison(const SetText& original);

    /// What a translation has too much or too little, and what of it is not translated. It has a language, too.
    [[nodiscard]] Findings compare(const SetText& translation) const;

private:
    [[nodiscard]] Findings compareStructure(const SetText& translation) const;
    [[nodiscard]] Findings findUntranslated(const SetText& translation) const;
    [[nodiscard]] Findings compareFacts(const SetText& translation) const;

    const SetText& original_;
    const std::size_t paragraphs_;
    const Facts facts_;
    std::set<icu::UnicodeString> longPassages_;  ///< without their line ends
};

}  // namespace zev
