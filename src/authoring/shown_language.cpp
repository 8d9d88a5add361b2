#include "authoring/shown_language.h"

#include <sys/stat.h>
#include <unicode/brkiter.h>

#include <algorithm>
#include <string_view>

#include "authoring/terminal_columns.h"
#include "console/dialog_run.h"
#include "console/license_dialog.h"
#include "console/terminal_geometry.h"
#include "files/license_text_set.h"
#include "files/paths.h"
#include "lang/resource_factory.h"

namespace zev {

namespace {

/// Whether opening the file could wait for ever or act on something.
bool isSpecial(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

RunContext contextFor(const std::string& directory, int languageSet, const std::string& code) {
    RunContext context;
    context.licenseDir = directory;
    context.locale = icu::Locale(code.c_str());
    context.resource = createResource(code.c_str(), true);
    context.languageSet = languageSet;
    return context;
}

}  // namespace

icu::UnicodeString lineOf(const TextLines& lines, std::size_t index) {
    const std::u16string_view line = lines[index];
    return {false, line.data(), static_cast<int32_t>(line.size())};
}

uint32_t ShownLines::pageLines(int32_t height) const {
    screenHeight = height;
    return textLinesPerPage(std::max(endPrompt->size(), continuePrompt->size()));
}

std::size_t ShownLines::pages(int32_t height) const {
    const std::size_t lines = pageLines(height);
    return lines == 0 ? 0 : (license->size() + lines - 1) / lines;
}

std::size_t ShownLines::tooWide(int32_t width) const {
    std::size_t count = 0;
    for (std::size_t i = 0; i < license->size(); ++i) {
        if (terminalColumns(lineOf(*license, i)) > width) ++count;
    }
    return count;
}

ShownLanguage::ShownLanguage(const std::string& directory, int languageSet, const std::string& code)
    : context_(contextFor(directory, languageSet, code)), dialog_(std::make_unique<LicenseDialog>(context_)) {}

ShownLanguage::~ShownLanguage() = default;

bool ShownLanguage::load() {
    // All that is opened on the way: the prompt asks whether there are English texts and terms of other parties.
    for (const std::string code : {context_.resource->getLanguageCode(), "en"}) {
        if (isSpecial(agreementPath(context_, code)) || isSpecial(informationPath(context_, code))) return false;
    }
    if (isSpecial(joinPath(context_.licenseDir, nonVurTermsName))) return false;

    if (!readLicenseText(context_, text_)) return false;
    endPrompt_ = context_.resource->CLIACCMSG_KEY().unescape();
    confirmation_ = context_.resource->CLICFMMSG_KEY().unescape();
    // Comes last: where it switches languages it takes Traditional for Simplified Chinese on the way back, as zev does.
    continuePrompt_ = buildContinuePrompt(*dialog_);
    return true;
}

icu::UnicodeString ShownLanguage::name() const { return context_.resource->LANGNAME_KEY().unescape(); }

bool ShownLanguage::layOut(int32_t width, ShownLines& lines) const {
    lines.license = breakText(*dialog_, text_, width);
    lines.continuePrompt = breakText(*dialog_, continuePrompt_, width);
    lines.endPrompt = breakText(*dialog_, endPrompt_, width);
    lines.confirmation = breakText(*dialog_, confirmation_, width);
    return lines.license && lines.continuePrompt && lines.endPrompt && lines.confirmation;
}

bool ShownLanguage::hasTooWideWord(const icu::UnicodeString& text, int32_t width, int32_t& position) const {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> breaks(
        icu::BreakIterator::createLineInstance(*dialog_->currentLocale, status));
    if (U_FAILURE(status)) return false;
    breaks->setText(text);
    for (int32_t begin = breaks->first(), end; (end = breaks->next()) != icu::BreakIterator::DONE; begin = end) {
        if (displayWidth(*dialog_, text.tempSubStringBetween(begin, end)) < width) continue;
        // Its line gets as many units as the screen has columns, be they less than the word or more.
        const bool isCut = !text.tempSubStringBetween(begin + width, end).trim().isEmpty();
        if (!isCut && terminalColumns(text.tempSubString(begin, width)) <= width) continue;
        position = begin;
        return true;
    }
    return false;
}

}  // namespace zev
