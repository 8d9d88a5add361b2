#pragma once

#include <optional>
#include <string>

#include "consent/record.h"
#include "consent/terminal.h"
#include "consent/terms.h"

namespace zev {

struct RunContext;

/// What the dialogue is about.
struct Subject {
    const Terms& terms;
    std::string product, version;
    std::optional<Fields> accepted;  ///< the last acceptance of other terms of the product
};

enum class Answer { accepted, declined, impossible };

/// Runs the dialogue of zev on a terminal. If it ends without an answer, it throws NobodyAnswers.
class Dialogue {
public:
    /// `context` has the terms in its licence directory. Its language is the one to show first, and after the dialogue
    /// the one that was shown last.
    Dialogue(Terminal& terminal, RunContext& context, const Subject& subject);

    /// Offers a menu of the languages that have a text of their own, if there are several.
    void chooseLanguage();

    /// If the answer is `impossible`, `problem` says why.
    [[nodiscard]] Answer ask(std::string& problem);

private:
    [[nodiscard]] bool isLegibleIn(const std::string& code, std::string& problem) const;
    [[nodiscard]] int32_t heightOfPages(ScreenSize size) const;
    [[nodiscard]] int32_t showNotice(const ScreenSize& size) const;

    Terminal& terminal_;
    RunContext& context_;
    const Subject& subject_;
};

}  // namespace zev
