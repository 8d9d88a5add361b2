#pragma once

#include <string>

#include "authoring/commands.h"
#include "authoring/finding.h"
#include "lang/language_table.h"

namespace zev {

/// A review of a licence directory as one page of HTML, for people without a terminal. Nothing in it runs or is
/// fetched.
class PreviewPage {
public:
    /// `findings` are those of `check` on the whole directory. Both outlive the page.
    PreviewPage(const PreviewCommand& preview, const Findings& findings);

    /// Adds a language: a row of the overview, and a part with its screens at 40, 80 and 132 columns. False when zev
    /// could not show it, which the page says too.
    bool add(const LanguageEntry& language);

    /// The page, in UTF-8.
    [[nodiscard]] std::string html() const;

private:
    const PreviewCommand& preview_;
    const Findings& findings_;
    std::string rows_;
    std::string parts_;
};

}  // namespace zev
