#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "app/run_context.h"
#include "console/screens.h"
#include "console/terminal_geometry.h"

namespace zev {

/// A line with its line feed; it borrows from `lines`.
[[nodiscard]] icu::UnicodeString lineOf(const TextLines& lines, std::size_t index);

/// How many lines take more columns on the terminal than its width.
[[nodiscard]] std::size_t tooWideLines(const TextLines& lines, int32_t width);

/// Where the information begins among the lines that agreement and information are laid out in.
struct Boundary {
    std::size_t line = 0;   ///< how many lines have a part of the agreement; 0 if unknown
    bool isInLine = false;  ///< the information begins in the last of these lines
};

/// One language of a licence directory, laid out by the code that zev itself runs. Traditional Chinese, which zev only
/// copies, is laid out by the same rules.
class ShownLanguage {
public:
    ShownLanguage(std::string directory, int languageSet, std::string code);

    /// Reads the agreement and the information, which must be regular files. False if zev could not load them.
    [[nodiscard]] bool load();

    /// Agreement and information up to the first U+0000, after `load`.
    [[nodiscard]] const icu::UnicodeString& text() const { return text_; }

    /// The language's own name.
    [[nodiscard]] icu::UnicodeString name() const;

    /// What zev shows on a screen of this size, after `load`. Null if there is nothing to lay out.
    [[nodiscard]] std::unique_ptr<const Screens> layOut(ScreenSize size) const;

    /// Where the information begins in `license`, which is laid out at `width` columns.
    [[nodiscard]] Boundary boundaryIn(const TextLines& license, int32_t width) const;

    /// Lays out a text as zev does while it speaks this language. Null if it is empty.
    [[nodiscard]] std::unique_ptr<TextLines> layOutText(const icu::UnicodeString& text, int32_t width) const;

    /// Whether `text` has a word that is wider than a line, so that zev cuts it or lets its line overflow. `position`
    /// is then the offset of the first such word, in code units.
    [[nodiscard]] bool hasTooWideWord(const icu::UnicodeString& text, int32_t width, int32_t& position) const;

private:
    /// A new context for each use, because the continue prompt changes it: it switches to another language and back,
    /// and, as in zev, Traditional Chinese is Simplified Chinese afterwards.
    [[nodiscard]] RunContext context() const;

    std::string directory_, code_;
    int languageSet_;
    icu::UnicodeString text_;
    int32_t agreementEnd_ = 0;  ///< in `text_`
};

/// The terms of other parties as they are shown to readers of some languages.
struct ShownTerms {
    std::vector<std::string> codes;  ///< of these languages
    icu::UnicodeString text;
    std::vector<std::unique_ptr<TextLines>> lines;  ///< for each width
    bool isSameInAll = true;                        ///< false if other languages break its lines in other places

    /// Such as "ja, ko".
    [[nodiscard]] std::string languages() const;
};

/// Lays out the terms of other parties for screens of some widths and readers of some languages. Languages share a
/// result if the lines are the same at all widths. Empty if the directory has no terms that zev could show.
[[nodiscard]] std::vector<ShownTerms> layOutTerms(const std::string& directory, std::span<const std::string> codes,
                                                  std::span<const int32_t> widths);

}  // namespace zev
