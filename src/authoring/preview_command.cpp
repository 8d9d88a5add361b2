#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "authoring/commands.h"
#include "authoring/messages.h"
#include "authoring/preview_html.h"
#include "authoring/preview_text.h"
#include "authoring/set_checks.h"
#include "authoring/set_files.h"
#include "files/directory_listing.h"

namespace zev {

namespace fs = std::filesystem;

namespace {

std::vector<LanguageEntry> languagesOf(const PreviewCommand& preview) {
    const auto all = languagesOfSet(preview.languageSet);
    std::vector<LanguageEntry> languages(all.begin(), all.end());
    std::erase_if(languages, [&](const LanguageEntry& language) {
        return !preview.languages.empty() && std::ranges::count(preview.languages, language.code) == 0;
    });
    return languages;
}

/// Tells someone who waits at a terminal how far the work is, from the second second on.
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

int previewText(const PreviewCommand& preview) {
    int status = authoring_status::clean;
    for (const auto& [code, englishName] : languagesOf(preview)) {
        ShownLanguage language(preview.directory, preview.languageSet, code);
        const auto screens = language.load() ? language.layOut({preview.width, preview.pageHeight}) : nullptr;
        if (screens) {
            writePreview(std::cout, code, language, *screens, preview);
        } else {
            std::cout << "== " << code << ": zev cannot show it; zev-licenses check says why\n";
            status = authoring_status::findings;
        }
    }
    return status;
}

int previewHtml(const PreviewCommand& preview, const Findings& findings) {
    const auto languages = languagesOf(preview);
    int status = authoring_status::clean;
    PreviewPage page(preview, findings);
    Progress progress(languages.size());
    for (const LanguageEntry& language : languages) {
        progress.startOn(language.englishName);
        if (!page.add(language)) status = authoring_status::findings;
    }
    std::ofstream file(preview.html, std::ios::binary);
    const bool isBegun = file.is_open();
    file << page.html();
    file.close();
    if (file) return status;
    std::error_code error;
    if (isBegun && fs::is_regular_file(fs::symlink_status(preview.html, error))) fs::remove(preview.html, error);
    return cannotWork(preview.html + ": cannot be written");
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
    return previewHtml(preview, findings);
}

}  // namespace zev
