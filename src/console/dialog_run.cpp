#include "console/dialog_run.h"

#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "app/debug_trace.h"
#include "app/exit_code.h"
#include "app/run_context.h"
#include "console/console_io.h"
#include "console/license_dialog.h"
#include "console/non_vur_pager.h"
#include "console/printing.h"
#include "console/screens.h"
#include "files/license_text_set.h"
#include "lang/resource.h"

namespace zev {

namespace {

/// How the dialogue in one language ends.
enum class Ending { accepted, declined, otherLanguage };

/// The dialogue in one language: pages, prompts and answers, from the first page to a decision or a change of language.
class Conversation {
public:
    Conversation(LicenseDialog& dialog, const Screens& screens) : dialog_(dialog), screens_(screens) {}

    Ending run() {
        showPage(screens_.firstPage());
        for (;;) {
            showPrompt();
            if (const auto ending = takeAnswer()) return *ending;
        }
    }

private:
    void showPage() const { writePage(screens_.license(), page_); }

    void showPage(Page page) {
        page_ = page;
        showPage();
    }

    void showPrompt() const {
        const Prompt prompt = screens_.promptBelow(page_);
        writeEmptyLines(prompt.emptyLines);
        writeLines(prompt.lines);
    }

    /// Does what the answer asks for. Without a result the dialogue continues with the prompt.
    std::optional<Ending> takeAnswer() {
        std::array<char, answerSize> answer;
        readInput(dialog_, answer);
        if (answer[0] == '\0') {
            showPage(screens_.pageAfter(page_));
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
            case 99: showPage(screens_.pageBefore(page_)); break;
            default: break;
        }
        return std::nullopt;
    }

    std::optional<Ending> confirmDecline() {
        std::array<char, answerSize> answer;
        for (;;) {
            writeLines(screens_.confirmation());
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
    const Screens& screens_;
    Page page_;
};

/// Loads and lays out the texts of the current language. If `screens` stays null, the result is the exit status.
int prepareScreens(LicenseDialog& dialog, std::unique_ptr<const Screens>& screens) {
    icu::UnicodeString license;
    if (!readLicenseText(dialog.context, license)) {
        trace("Error getting license text");
        return exit_code::noLicense;
    }
    screens = Screens::layOut(dialog, license);
    return exit_code::noLayout;
}

}  // namespace

int runLicenseDialog(RunContext& context, ScreenSize size, std::ofstream commandLog) {
    LicenseDialog dialog(context, size, std::move(commandLog));
    for (;;) {
        std::unique_ptr<const Screens> screens;
        const int failure = prepareScreens(dialog, screens);
        if (!screens) return failure;
        switch (Conversation(dialog, *screens).run()) {
            case Ending::accepted: return exit_code::accepted;
            case Ending::declined: return exit_code::declined;
            case Ending::otherLanguage: break;
        }
    }
}

}  // namespace zev
