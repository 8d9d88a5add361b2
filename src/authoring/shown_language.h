#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "app/run_context.h"
#include "console/line_breaking.h"

namespace zev {

/// A line with its line feed; it borrows from `lines`.
[[nodiscard]] icu::UnicodeString lineOf(const TextLines& lines, std::size_t index);

/// What zev shows of one language on a screen of one width.
struct ShownLines {
    std::unique_ptr<TextLines> license;
    std::unique_ptr<TextLines> continuePrompt;
    std::unique_ptr<TextLines> endPrompt;
    std::unique_ptr<TextLines> confirmation;

    /// How many lines of text stand on a page of a screen that is `height` lines high; unlimitedPage on a low one.
    [[nodiscard]] uint32_t pageLines(int32_t height) const;
    /// 0 where a page has no room for any text, so that it is never seen.
    [[nodiscard]] std::size_t pages(int32_t height) const;
    /// How many lines of text take more columns on the terminal than its width.
    [[nodiscard]] std::size_t tooWide(int32_t width) const;
};

/// One language of a licence directory, laid out by the code that zev itself runs. Traditional Chinese, which zev only
/// copies, is laid out by the same rules.
class ShownLanguage {
public:
    ShownLanguage(const std::string& directory, int languageSet, const std::string& code);
    ~ShownLanguage();
    ShownLanguage(const ShownLanguage&) = delete;
    ShownLanguage& operator=(const ShownLanguage&) = delete;

    /// Reads the agreement and the information, which must be regular files. False when zev could not load them.
    [[nodiscard]] bool load();

    /// Agreement and information up to the first U+0000, after `load`.
    [[nodiscard]] const icu::UnicodeString& text() const { return text_; }

    /// The language's own name.
    [[nodiscard]] icu::UnicodeString name() const;

    /// False when there is nothing to lay out.
    [[nodiscard]] bool layOut(int32_t width, ShownLines& lines) const;

    /// Whether `text` has a word that zev cuts because it is wider than a line, or whose line it lets overflow;
    /// `position` is that of the first, in code units.
    [[nodiscard]] bool hasTooWideWord(const icu::UnicodeString& text, int32_t width, int32_t& position) const;

private:
    RunContext context_;
    std::unique_ptr<LicenseDialog> dialog_;
    icu::UnicodeString text_, continuePrompt_, endPrompt_, confirmation_;
};

}  // namespace zev
