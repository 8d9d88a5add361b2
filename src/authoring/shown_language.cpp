#include "authoring/shown_language.h"

#include <sys/stat.h>
#include <unicode/brkiter.h>

#include <algorithm>
#include <utility>

#include "app/run_options.h"
#include "console/license_dialog.h"
#include "console/line_breaking.h"
#include "console/terminal_columns.h"
#include "files/encoded_text_file.h"
#include "files/license_text_set.h"
#include "files/paths.h"
#include "lang/resource_factory.h"

namespace zev {

namespace {

/// Whether opening the file could block or have an effect, as it can with a FIFO or a device.
bool isSpecial(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

std::u16string_view withoutLineFeed(std::u16string_view line) { return line.substr(0, line.size() - 1); }

}  // namespace

icu::UnicodeString lineOf(const TextLines& lines, std::size_t index) {
    const std::u16string_view line = lines[index];
    return {false, line.data(), static_cast<int32_t>(line.size())};
}

std::size_t tooWideLines(const TextLines& lines, int32_t width) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (terminalColumns(lineOf(lines, i)) > width) ++count;
    }
    return count;
}

ShownLanguage::ShownLanguage(std::string directory, int languageSet, std::string code)
    : directory_(std::move(directory)), code_(std::move(code)), languageSet_(languageSet) {}

RunContext ShownLanguage::context() const {
    RunContext context;
    context.licenseDir = directory_;
    context.locale = icu::Locale(code_.c_str());
    context.resource = createResource(code_.c_str(), true);
    context.languageSet = languageSet_;
    return context;
}

bool ShownLanguage::load() {
    const RunContext own = context();
    // All files that are opened below: the prompt looks whether there are English texts and terms of other parties.
    for (const std::string& code : {code_, std::string("en")}) {
        if (isSpecial(agreementPath(own, code)) || isSpecial(informationPath(own, code))) return false;
    }
    if (isSpecial(joinPath(directory_, nonVurTermsName)) || !readLicenseText(own, text_)) return false;
    std::size_t units = 0;
    if (!countFileChars(agreementPath(own, code_), licenseCodePage, units)) return false;
    agreementEnd_ = static_cast<int32_t>(std::min(units, static_cast<std::size_t>(text_.length())));
    return true;
}

icu::UnicodeString ShownLanguage::name() const { return context().resource->LANGNAME_KEY().unescape(); }

std::unique_ptr<const Screens> ShownLanguage::layOut(ScreenSize size) const {
    RunContext own = context();
    LicenseDialog dialog(own, size);
    return Screens::layOut(dialog, text_);
}

Boundary ShownLanguage::boundaryIn(const TextLines& license, int32_t width) const {
    const icu::UnicodeString agreement = text_.tempSubString(0, agreementEnd_);
    const auto lines = layOutText(agreement, width);
    if (!lines || agreement.length() == text_.length()) return {};
    // In a double-width language, a cut may run past the line feed between the two.
    const std::size_t last = lines->size() - 1;
    if (last >= license.size()) return {};
    for (std::size_t i = 0; i < last; ++i) {
        if ((*lines)[i] != license[i]) return {};
    }
    // Without a line feed at the end of the agreement, its last word can be in the next line.
    std::u16string_view end = withoutLineFeed((*lines)[last]);
    const std::u16string_view shown = withoutLineFeed(license[last]);
    const bool isSplit = shown.size() < end.size() && end.starts_with(shown) && last + 1 < license.size();
    if (isSplit) end.remove_prefix(shown.size());
    const std::size_t line = isSplit ? last + 1 : last;
    const bool isInLine = withoutLineFeed(license[line]) != end;
    if (isInLine && (agreement.endsWith(u"\n") || !license[line].starts_with(end))) return {};
    return {line + 1, isInLine};
}

std::unique_ptr<TextLines> ShownLanguage::layOutText(const icu::UnicodeString& text, int32_t width) const {
    RunContext own = context();
    return breakText(LicenseDialog(own), text, width);
}

bool ShownLanguage::hasTooWideWord(const icu::UnicodeString& text, int32_t width, int32_t& position) const {
    RunContext own = context();
    const LicenseDialog dialog(own);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> breaks(icu::BreakIterator::createLineInstance(own.locale, status));
    if (U_FAILURE(status)) return false;
    breaks->setText(text);
    for (int32_t begin = breaks->first(), end; (end = breaks->next()) != icu::BreakIterator::DONE; begin = end) {
        if (displayWidth(dialog, text.tempSubStringBetween(begin, end)) < width) continue;
        // Its line gets as many code units as the screen has columns, even if the word has fewer or more.
        const bool isCut = !text.tempSubStringBetween(begin + width, end).trim().isEmpty();
        if (!isCut && terminalColumns(text.tempSubString(begin, width)) <= width) continue;
        position = begin;
        return true;
    }
    return false;
}

std::string ShownTerms::languages() const {
    std::string list;
    for (const std::string& code : codes) list += (list.empty() ? "" : ", ") + code;
    return list;
}

std::vector<ShownTerms> layOutTerms(const std::string& directory, std::span<const std::string> codes,
                                    std::span<const int32_t> widths) {
    RunContext context;
    context.licenseDir = directory;
    icu::UnicodeString text;
    std::vector<ShownTerms> all;
    if (isSpecial(joinPath(directory, nonVurTermsName)) || !readNonVurText(context, text)) return all;
    const auto isEqual = [](const auto& one, const auto& other) { return *one == *other; };
    for (const std::string& code : codes) {
        const ShownLanguage language(directory, defaultLanguageSet, code);
        std::vector<std::unique_ptr<TextLines>> lines;
        for (const int32_t width : widths) {
            lines.push_back(language.layOutText(text, width));
            if (!lines.back()) return {};
        }
        const auto known = std::ranges::find_if(
            all, [&](const ShownTerms& terms) { return std::ranges::equal(terms.lines, lines, isEqual); });
        if (known != all.end()) {
            known->codes.push_back(code);
        } else {
            all.push_back({{code}, text, std::move(lines)});
        }
    }
    for (ShownTerms& terms : all) terms.isSameInAll = all.size() == 1;
    return all;
}

}  // namespace zev
