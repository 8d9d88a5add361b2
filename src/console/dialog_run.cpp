#include "console/dialog_run.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>

#include "app/debug_trace.h"
#include "app/exit_code.h"
#include "app/run_context.h"
#include "console/console_input.h"
#include "console/license_dialog.h"
#include "console/line_breaking.h"
#include "console/non_vur_pager.h"
#include "console/printing.h"
#include "console/terminal_geometry.h"
#include "console/text_output.h"
#include "files/license_text_set.h"
#include "lang/resource.h"

namespace zev {

namespace {

/// What the dialogue shows in one language.
struct DialogTexts {
    std::unique_ptr<TextLines> license;
    std::unique_ptr<TextLines> endPrompt;
    std::unique_ptr<TextLines> continuePrompt;
    std::unique_ptr<TextLines> confirmation;
};

/// How the dialogue in one language ends.
enum class Ending { accepted, declined, otherLanguage };

/// Loads and lays out the texts of the current language. Returns 0, or the exit status of the failure.
int prepareTexts(LicenseDialog& dialog, DialogTexts& texts) {
    const auto breakInto = [&](std::unique_ptr<TextLines>& lines, const icu::UnicodeString& text, const char* name) {
        lines = breakText(dialog, text, screenWidth);
        if (!lines) trace("Failed breakText for ", name);
        return lines != nullptr;
    };

    icu::UnicodeString license;
    if (!readLicenseText(dialog.context, license)) {
        trace("Error getting license text");
        return exit_code::noLicense;
    }
    const bool complete =
        breakInto(texts.license, license, "license text") &&
        breakInto(texts.endPrompt, dialog.context.resource->CLIACCMSG_KEY().unescape(), "CLIACCMSG_KEY") &&
        breakInto(texts.continuePrompt, buildContinuePrompt(dialog), "CLICONTMSG_KEY") &&
        breakInto(texts.confirmation, dialog.context.resource->CLICFMMSG_KEY().unescape(), "CLICFMMSG_KEY");
    return complete ? 0 : exit_code::noLayout;
}

/// The dialogue in one language: pages, prompts and answers, from the first page to a decision or a change of language.
class Conversation {
public:
    Conversation(LicenseDialog& dialog, const DialogTexts& texts)
        : dialog_(dialog),
          texts_(texts),
          promptLines_(std::max(texts.endPrompt->size(), texts.continuePrompt->size())),
          pageLines_(textLinesPerPage(promptLines_)) {}

    Ending run() {
        showPage();
        for (;;) {
            showPrompt();
            if (const auto ending = takeAnswer()) return *ending;
        }
    }

private:
    void showPage() {
        const uint32_t shown = writeLines(*texts_.license, pageStart_, pageLines_);
        pageEnd_ = pageStart_ + shown;
        // Keeps the prompt at one height; a page beyond the text stays empty.
        if (shown > 0) fillPage(shown, pageLines_);
    }

    void showPrompt() const {
        const bool atEnd = pageEnd_ == texts_.license->size();
        const TextLines& prompt = atEnd ? *texts_.endPrompt : *texts_.continuePrompt;
        writeEmptyLines(2 + promptLines_ - prompt.size());
        writeLines(prompt);
    }

    /// Does what the answer asks for. None means that the dialogue goes on, with the prompt again.
    std::optional<Ending> takeAnswer() {
        std::array<char, answerSize> answer;
        readInput(dialog_, answer);
        if (answer[0] == '\0') {
            pageStart_ = pageEnd_;
            showPage();
            return std::nullopt;
        }
        switch (std::atoi(answer.data())) {
            case 1: return accepted();
            case 2: return confirmDecline();
            case 3: print(); break;
            case 4:
                if (showNonVurTerms(dialog_)) showPage();
                break;
            case 5:
                if (toggleLanguage(dialog_)) return Ending::otherLanguage;
                break;
            case 99:
                pageStart_ -= std::min<std::size_t>(pageStart_, pageLines_);
                showPage();
                break;
            default: break;
        }
        return std::nullopt;
    }

    std::optional<Ending> confirmDecline() {
        std::array<char, answerSize> answer;
        for (;;) {
            writeLines(*texts_.confirmation);
            writeEmptyLines(1);
            readInput(dialog_, answer);
            const std::string_view text = answer.data();
            if (text == "2") {
                trace("License Rejected");
                return Ending::declined;
            }
            if (text == "1") return accepted();
            if (text.empty()) {
                trace("Going back to the license");
                showPage();
                return std::nullopt;
            }
        }
    }

    static Ending accepted() {
        trace("License Accepted");
        return Ending::accepted;
    }

    void print() const {
        if (printLicense(dialog_)) return;
        icu::UnicodeString message = dialog_.context.resource->PRINTERRMSG_KEY().unescape();
        // Deliberately the address of the message and not its words.
        std::cout << static_cast<const void*>(message.getTerminatedBuffer()) << '\n';
        trace("Error printing LA");
    }

    LicenseDialog& dialog_;
    const DialogTexts& texts_;
    std::size_t promptLines_;
    uint32_t pageLines_;
    std::size_t pageStart_ = 0;
    std::size_t pageEnd_ = 0;
};

}  // namespace

icu::UnicodeString buildContinuePrompt(LicenseDialog& dialog) {
    const auto& resource = dialog.context.resource;
    icu::UnicodeString prompt = resource->CLICONTMSG_KEY().unescape();
    prompt.truncate(prompt.length() - 2);  // the full stop, which follows the choices, and the line feed
    prompt.append(u", \"3\" ").append(resource->PRINT_KEY().unescape());
    if (nonVurTermsExist(dialog.context.licenseDir)) {
        prompt.append(u", \"4\" ").append(resource->NONVURTERMS_KEY().unescape());
    }
    if (toggleLanguage(dialog)) {
        prompt.append(u", \"5\" ").append(resource->LANGNAME_KEY().unescape());
        toggleLanguage(dialog);
    }
    return prompt.append(u".\n");
}

int runLicenseDialog(RunContext& context) {
    LicenseDialog dialog(context);
    for (;;) {
        DialogTexts texts;
        if (const int failure = prepareTexts(dialog, texts); failure != 0) return failure;
        switch (Conversation(dialog, texts).run()) {
            case Ending::accepted: return exit_code::accepted;
            case Ending::declined: return exit_code::declined;
            case Ending::otherLanguage: break;
        }
    }
}

}  // namespace zev
