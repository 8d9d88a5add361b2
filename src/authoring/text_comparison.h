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
    /// The file of `original` has a language. `original` must outlive this object.
    explicit TextComparison(const SetText& original);

    /// Finds what a translation lacks, what it has beyond the original, and which parts are not translated. Its file
    /// has a language too.
    [[nodiscard]] Findings compare(const SetText& translation) const;

private:
    [[nodiscard]] Findings compareStructure(const SetText& translation) const;
    [[nodiscard]] Findings findUntranslated(const SetText& translation) const;
    [[nodiscard]] Findings compareFacts(const SetText& translation) const;

    const SetText& original_;
    const std::size_t paragraphs_;
    const Facts facts_;
    std::set<icu::UnicodeString> longPassages_;  ///< of the original, each without line ends
};

}  // namespace zev
