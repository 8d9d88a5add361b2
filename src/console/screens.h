#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "console/line_breaking.h"

namespace zev {

struct LicenseDialog;

/// A page: lines of a text and the empty lines below them, so that the prompt always stands at the same height.
struct Page {
    std::size_t begin = 0;  ///< the first line
    std::size_t end = 0;    ///< after the last one
    std::size_t emptyLines = 0;
};

/// A prompt, and the empty lines above it.
struct Prompt {
    std::size_t emptyLines;
    const TextLines& lines;
};

/// What the dialogue shows in one language on a screen of one size.
class Screens {
public:
    /// Lays out `license` and the prompts in the current language of the dialogue, for its screen. Null if one of
    /// them cannot be broken into lines; the trace names it. Switches the language and back, so that the prompt has the
    /// name of the other language in that language.
    [[nodiscard]] static std::unique_ptr<const Screens> layOut(LicenseDialog& dialog,
                                                               const icu::UnicodeString& license);

    [[nodiscard]] const TextLines& license() const { return *license_; }
    [[nodiscard]] const TextLines& continuePrompt() const { return *continuePrompt_; }
    [[nodiscard]] const TextLines& endPrompt() const { return *endPrompt_; }
    [[nodiscard]] const TextLines& confirmation() const { return *confirmation_; }

    /// How many lines of text a page holds; see textLinesPerPage.
    [[nodiscard]] uint32_t pageLines() const { return pageLines_; }
    /// How many pages the text fills; 0 if a page has no room for any text, so that it is never seen.
    [[nodiscard]] std::size_t pageCount() const;

    [[nodiscard]] Page firstPage() const { return pageFrom(0); }
    /// The page after another. After the end of the text it has no lines.
    [[nodiscard]] Page pageAfter(const Page& page) const { return pageFrom(page.end); }
    [[nodiscard]] Page pageBefore(const Page& page) const;
    /// The prompt that ends at the same height on every page.
    [[nodiscard]] Prompt promptBelow(const Page& page) const;

private:
    Screens() = default;
    [[nodiscard]] std::size_t promptLines() const;
    [[nodiscard]] Page pageFrom(std::size_t begin) const;

    std::unique_ptr<const TextLines> license_, continuePrompt_, endPrompt_, confirmation_;
    uint32_t pageLines_ = 0;
};

/// The page of the other parties' terms that begins with line `begin`. After their end it is blank.
[[nodiscard]] Page pageOfTerms(const TextLines& terms, std::size_t begin, int32_t screenHeight);

/// How many pages the other parties' terms fill; 0 if a page has no room for any text.
[[nodiscard]] std::size_t pageCountOfTerms(const TextLines& terms, int32_t screenHeight);

}  // namespace zev
