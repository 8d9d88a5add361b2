#include "console/screens.h"

#include <algorithm>

#include "app/debug_trace.h"
#include "app/run_context.h"
#include "console/license_dialog.h"
#include "console/line_breaking.h"
#include "console/terminal_geometry.h"
#include "files/license_text_set.h"
#include "lang/resource.h"

namespace zev {

namespace {

/// The continue prompt in the current language, with the numbered choices that this dialogue offers.
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

std::size_t countPages(const TextLines& lines, uint32_t pageLines) {
    return pageLines == 0 ? 0 : (lines.size() + pageLines - 1) / pageLines;
}

std::size_t fillUp(std::size_t shown, uint32_t pageLines) { return pageLines == unlimitedPage ? 0 : pageLines - shown; }

}  // namespace

std::unique_ptr<const Screens> Screens::layOut(LicenseDialog& dialog, const icu::UnicodeString& license) {
    const auto breakInto = [&](std::unique_ptr<const TextLines>& lines, const icu::UnicodeString& text,
                               const char* name) {
        lines = breakText(dialog, text, dialog.size.width);
        if (!lines) trace("Failed breakText for ", name);
        return lines != nullptr;
    };
    const auto& resource = dialog.context.resource;
    std::unique_ptr<Screens> screens(new Screens);
    const bool complete = breakInto(screens->license_, license, "license text") &&
                          breakInto(screens->endPrompt_, resource->CLIACCMSG_KEY().unescape(), "CLIACCMSG_KEY") &&
                          breakInto(screens->continuePrompt_, buildContinuePrompt(dialog), "CLICONTMSG_KEY") &&
                          breakInto(screens->confirmation_, resource->CLICFMMSG_KEY().unescape(), "CLICFMMSG_KEY");
    if (!complete) return nullptr;
    screens->pageLines_ = textLinesPerPage(dialog.size.height, screens->promptLines());
    return screens;
}

std::size_t Screens::pageCount() const { return countPages(*license_, pageLines_); }

Page Screens::pageBefore(const Page& page) const {
    return pageFrom(page.begin - std::min<std::size_t>(page.begin, pageLines_));
}

Prompt Screens::promptBelow(const Page& page) const {
    const TextLines& prompt = page.end == license_->size() ? *endPrompt_ : *continuePrompt_;
    return {2 + promptLines() - prompt.size(), prompt};
}

std::size_t Screens::promptLines() const { return std::max(endPrompt_->size(), continuePrompt_->size()); }

Page Screens::pageFrom(std::size_t begin) const {
    const std::size_t shown = std::min<std::size_t>(license_->size() - begin, pageLines_);
    return {begin, begin + shown, shown > 0 ? fillUp(shown, pageLines_) : 0};
}

Page pageOfTerms(const TextLines& terms, std::size_t begin, int32_t screenHeight) {
    const uint32_t pageLines = textLinesPerPage(screenHeight, 0);
    const std::size_t shown = std::min<std::size_t>(terms.size() - begin, pageLines);
    return {begin, begin + shown, fillUp(shown, pageLines)};
}

std::size_t pageCountOfTerms(const TextLines& terms, int32_t screenHeight) {
    return countPages(terms, textLinesPerPage(screenHeight, 0));
}

}  // namespace zev
