#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "authoring/commands.h"
#include "authoring/preview_page.h"
#include "authoring/set_checks.h"
#include "authoring/set_files.h"
#include "authoring/shown_language.h"
#include "console/code_page_loss.h"
#include "console/non_vur_pager.h"
#include "console/terminal_columns.h"
#include "files/directory_at.h"
#include "files/license_text_set.h"

namespace zev {

namespace {

std::vector<LanguageEntry> languagesOf(const PreviewCommand& preview) {
    const auto all = languagesOfSet(preview.languageSet);
    std::vector<LanguageEntry> languages(all.begin(), all.end());
    std::erase_if(languages, [&](const LanguageEntry& language) {
        return !preview.languages.empty() && std::ranges::count(preview.languages, language.code) == 0;
    });
    return languages;
}

std::vector<std::string> codesOf(const std::vector<LanguageEntry>& languages) {
    std::vector<std::string> codes(languages.size());
    std::ranges::transform(languages, codes.begin(), &LanguageEntry::code);
    return codes;
}

/// Writes what zev shows, in UTF-8. Lines that begin with "==" come first: figures, and the SHA-256 of the files. Each
/// line of a text begins with a margin of five columns, which has a ">" if the line is too wide for the terminal. If
/// the height of the screen is given, the text is shown in pages with their prompts, as a user sees it who presses
/// Enter until the end.
class TextPreview {
public:
    explicit TextPreview(const PreviewCommand& preview) : preview_(preview), sums_(sumsOfSet(preview.directory)) {}

    void begin() { writeHead(nameOfDirectory(preview_.directory) + ": fingerprint " + sums_.fingerprint); }

    void writeHead(const std::string& text) { std::cout << "== " << text << "\n"; }

    void writeLanguage(const std::string& code, const ShownLanguage& language, const Screens& screens) {
        writeFigures(code, language.text(), screens.license(), screens.pageCount());
        writeSums({agreementName(code), informationName(code)});
        if (preview_.pageHeight == 0) return writeLines(screens.license(), {0, screens.license().size()});
        for (Page page = screens.firstPage();; page = screens.pageAfter(page)) {
            writeLines(screens.license(), page);
            const Prompt prompt = screens.promptBelow(page);
            writeEmptyLines(prompt.emptyLines);
            writeLines(prompt.lines, {0, prompt.lines.size()});
            if (page.end == screens.license().size() || page.begin == page.end) break;  // or the pages have no lines
            writeEmptyLines(1);                                                         // for the answer
        }
    }

    void writeTerms(const ShownTerms& terms) {
        const TextLines& lines = *terms.lines.front();
        const std::string languages = terms.isSameInAll ? "" : " in " + terms.languages();
        writeFigures(nonVurTermsName + languages, terms.text, lines, pageCountOfTerms(lines, preview_.pageHeight));
        writeSums({nonVurTermsName});
        if (preview_.pageHeight == 0) return writeLines(lines, {0, lines.size()});
        for (Page page = pageOfTerms(lines, 0, preview_.pageHeight);;
             page = pageOfTerms(lines, page.end, preview_.pageHeight)) {
            writeLines(lines, page);
            writeEmptyLines(2);
            std::cout << margin << morePrompt << "\n";
            if (page.end == lines.size() || page.begin == page.end) break;
            writeEmptyLines(1);
        }
    }

private:
    static constexpr const char* margin = "     ";

    void writeFigures(const std::string& name, const icu::UnicodeString& text, const TextLines& lines,
                      std::size_t pages) {
        std::string figures = name + ", " + counted(static_cast<std::size_t>(preview_.width), "column");
        if (!preview_.codePage.empty()) figures += ", " + printable(preview_.codePage);
        figures += ": " + counted(lines.size(), "line");
        if (preview_.pageHeight > 0) figures += ", " + counted(pages, "page");
        if (!preview_.codePage.empty()) {
            figures += ", " + counted(lossIn(preview_.codePage, text).count(), "character") + " lost";
        }
        writeHead(figures + ", " + counted(tooWideLines(lines, preview_.width), "line") + " too wide");
    }

    void writeSums(const std::vector<std::string>& names) {
        for (const auto& [name, sum] : sums_.files) {
            if (std::ranges::count(names, name) > 0) writeHead(name + ": SHA-256 " + sum);
        }
    }

    void writeEmptyLines(std::size_t count) { std::cout << std::string(count, '\n'); }

    void writeLines(const TextLines& lines, Page page) {
        for (std::size_t i = page.begin; i < page.end; ++i) {
            const icu::UnicodeString line = lineOf(lines, i);
            const std::string bytes = utf8Of(line);
            const bool isTooWide = terminalColumns(line) > preview_.width;
            std::cout << (isTooWide ? "   > " : bytes == "\n" ? "" : margin) << bytes;
        }
        writeEmptyLines(page.emptyLines);
    }

    const PreviewCommand& preview_;
    const SetSums sums_;
};

int previewText(const PreviewCommand& preview) {
    int status = authoring_status::clean;
    const auto languages = languagesOf(preview);
    TextPreview text(preview);
    text.begin();
    for (const auto& [code, englishName] : languages) {
        ShownLanguage language(preview.directory, preview.languageSet, code);
        const auto screens = language.load() ? language.layOut({preview.width, preview.pageHeight}) : nullptr;
        if (screens) {
            text.writeLanguage(code, language, *screens);
        } else {
            text.writeHead(code + std::string(": zev cannot show it; zev-licenses check says why"));
            status = authoring_status::findings;
        }
    }
    const std::vector<int32_t> widths{preview.width};
    for (const ShownTerms& terms : layOutTerms(preview.directory, codesOf(languages), widths)) text.writeTerms(terms);
    return status;
}

/// Tells a user at a terminal how far the work is, if it takes longer than a second.
class Progress {
public:
    explicit Progress(std::size_t all) : all_(all) {}
    ~Progress() {
        if (isShown_) std::cerr << clearLine;
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void startOn(const char* what) {
        ++current_;
        if (isatty(STDERR_FILENO) == 0 || std::chrono::steady_clock::now() - start_ < std::chrono::seconds(1)) return;
        std::cerr << clearLine << what << " (" << current_ << " of " << all_ << ")" << std::flush;
        isShown_ = true;
    }

private:
    static constexpr const char* clearLine = "\r\x1B[K";

    std::size_t all_;
    std::size_t current_ = 0;
    bool isShown_ = false;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// The findings about what the page shows: if languages were named, their texts and the terms.
Findings findingsFor(const PreviewCommand& preview, Findings findings) {
    if (preview.languages.empty()) return findings;
    std::vector<std::string> shown{nonVurTermsName};
    for (const std::string& code : preview.languages) {
        shown.insert(shown.end(), {agreementName(code), informationName(code)});
    }
    std::erase_if(findings, [&](const Finding& finding) { return std::ranges::count(shown, finding.file.name) == 0; });
    return findings;
}

/// Writes the page. If that fails before its end, the file is removed. Returns the exit status.
int writePage(const std::string& path, const std::string& html) {
    namespace fs = std::filesystem;
    std::ofstream file(path, std::ios::binary);
    const bool isBegun = file.is_open();
    file << html;
    file.close();
    if (file) return authoring_status::clean;
    std::error_code ignored;
    if (isBegun && fs::is_regular_file(fs::symlink_status(path, ignored))) fs::remove(path, ignored);
    return cannotWork(path + ": cannot be written");
}

int previewHtml(const PreviewCommand& preview, const Findings& findings) {
    const auto languages = languagesOf(preview);
    const SetSums sums = sumsOfSet(preview.directory);
    int status = authoring_status::clean;
    PreviewPage page(preview, findings, sums);
    Progress progress(languages.size() + 1);
    for (const LanguageEntry& language : languages) {
        progress.startOn(language.englishName);
        if (!page.addLanguage(language)) status = authoring_status::findings;
    }
    progress.startOn("Terms of other parties");
    for (const ShownTerms& terms : layOutTerms(preview.directory, codesOf(languages), PreviewPage::widths)) {
        page.addTerms(terms);
    }
    const int written = writePage(preview.html, page.html());
    return written == authoring_status::clean ? status : written;
}

}  // namespace

int runPreview(const PreviewCommand& preview) {
    Findings findings;
    std::string problem;
    if (preview.html.empty()) {
        std::vector<std::string> names;
        return listDirectory(preview.directory, names, problem) ? previewText(preview) : cannotWork(problem);
    }
    if (!checkSet(preview.directory, {preview.languageSet, ""}, findings, problem)) return cannotWork(problem);
    return previewHtml(preview, findingsFor(preview, std::move(findings)));
}

}  // namespace zev
