#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "authoring/commands.h"
#include "authoring/finding.h"
#include "authoring/set_files.h"
#include "authoring/shown_language.h"
#include "console/terminal_geometry.h"
#include "lang/language_table.h"

namespace zev {

/// A review of a licence directory as one page of HTML, which people without a terminal can read, print and sign. The
/// page runs nothing and fetches nothing, and it is the same for the same files.
class PreviewPage {
public:
    /// The columns of the terminals on which the page shows each text.
    static constexpr int32_t widths[]{40, usualWidth, 132};

    /// `findings` are those of `check` about what the page shows, `sums` are those of all files. All three arguments
    /// must outlive the page.
    PreviewPage(const PreviewCommand& preview, const Findings& findings, const SetSums& sums);

    /// Adds a language: a row of the overview, and a part with its screens. False if zev cannot show it; the page says
    /// so too.
    bool addLanguage(const LanguageEntry& language);

    /// Adds the terms of other parties in the same way; they are laid out at `widths`.
    void addTerms(const ShownTerms& terms);

    /// The page, in UTF-8.
    [[nodiscard]] std::string html() const;

private:
    struct Part {
        std::string id;
        std::string title;       ///< as HTML
        std::string sheetTitle;  ///< as text, for the margins of its sheets
        std::vector<std::string> files;
        std::string figures;  ///< cells of the overview; empty if zev cannot show it
        std::string screens;
    };
    void add(const Part& part);

    const PreviewCommand& preview_;
    const Findings& findings_;
    const SetSums& sums_;
    std::string directory_;  ///< its name as text
    std::string rows_, parts_, sheetStyle_;
};

}  // namespace zev
