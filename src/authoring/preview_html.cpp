#include "authoring/preview_html.h"

#include <algorithm>

#include "app/run_options.h"
#include "authoring/html_cells.h"
#include "authoring/html_style.h"
#include "authoring/language_profile.h"
#include "authoring/messages.h"
#include "authoring/shown_language.h"
#include "console/code_page_loss.h"
#include "files/license_text_set.h"

namespace zev {

namespace {

constexpr int32_t widths[]{40, 80, 132};  ///< columns
constexpr int32_t usualWidth = 80;
constexpr int32_t usualHeight = 24;

std::string number(std::size_t count) { return "<td class=\"number\">" + std::to_string(count) + "</td>"; }

std::string heading(int level, const std::string& content, const std::string& id = "") {
    const std::string name = "h" + std::to_string(level);
    return "<" + name + (id.empty() ? "" : " id=\"" + id + "\"") + ">" + content + "</" + name + ">\n";
}

/// The language tag of HTML, which tells the browser the shapes of Chinese characters.
std::string tagOf(const std::string& code) { return code == "zh" ? "zh-Hans" : code == "zh_TW" ? "zh-Hant" : code; }

std::string listOf(const Findings& findings) {
    if (findings.empty()) return "<p>Nothing was found.</p>\n";
    std::string list;
    const std::string lines = listFindings(findings);
    for (std::size_t begin = 0, end; (end = lines.find('\n', begin)) != std::string::npos; begin = end + 1) {
        const std::string line = lines.substr(begin, end - begin);
        const bool isError = line.find(": error: ") != std::string::npos;
        list += std::string("<li") + (isError ? " class=\"error\"" : "") + ">" + escapeHtml(line) + "</li>\n";
    }
    return "<ul class=\"findings\">\n" + list + "</ul>\n";
}

Findings findingsOf(const Findings& findings, const std::string& code) {
    Findings own;
    std::ranges::copy_if(findings, std::back_inserter(own), [&](const Finding& finding) {
        return finding.file.name == agreementName(code) || finding.file.name == informationName(code);
    });
    return own;
}

std::string counted(const Findings& findings) { return findings.empty() ? "none" : summaryOf(findings); }

/// What the page says of one language.
class LanguagePart {
public:
    LanguagePart(const LanguageEntry& entry, const ShownLanguage& language, const std::string& codePage)
        : code_(entry.code) {
        for (const char* page : profileOf(code_).codePages) lost_.codePages.emplace_back(page);
        if (!codePage.empty()) lost_.codePages = {codePage};
        for (std::size_t i = 0; i < lost_.codePages.size(); ++i) {
            const CodePageLoss loss = lossIn(lost_.codePages[i], language.text());
            losses_ += (i > 0 ? "<br>" : "") + escapeHtml(lost_.codePages[i]) + ": " + std::to_string(loss.count());
            for (const auto& [character, count] : loss.characters) lost_.masks[character] |= LossMask{1} << i;
        }
    }

    [[nodiscard]] const std::string& losses() const { return losses_; }

    [[nodiscard]] std::string screens(int32_t width, const Screens& shown) const {
        const std::string columns = std::to_string(width);
        return "<div class=\"at" + columns + "\">\n" +
               heading(3,
                       columns + " columns: " + zev::counted(shown.license().size(), "line") + ", " +
                           zev::counted(shown.pageCount(), "page") + " of 24 lines, " +
                           zev::counted(tooWideLines(shown.license(), width), "line") + " too wide",
                       idOf(width)) +
               screen(shown.license(), width, "The text") + heading(4, "Asked under every page but the last") +
               screen(shown.continuePrompt(), width, "The prompt under a page") + heading(4, "Asked at the end") +
               screen(shown.endPrompt(), width, "The prompt at the end") + heading(4, "Asked after the answer \"2\"") +
               screen(shown.confirmation(), width, "The question whether to decline") + "</div>\n";
    }

    [[nodiscard]] std::string links() const {
        std::string links = "<nav aria-label=\"" + code_ + "\">";
        for (const int32_t width : widths) {
            links += "<a href=\"#" + idOf(width) + "\">" + std::to_string(width) + " columns</a>";
        }
        return links + "<a href=\"#languages\">All languages</a></nav>\n";
    }

private:
    [[nodiscard]] std::string idOf(int32_t width) const { return code_ + "-" + std::to_string(width); }

    [[nodiscard]] std::string screen(const TextLines& lines, int32_t width, const std::string& what) const {
        std::string html = R"(<div class="screen" role="region" tabindex="0" aria-label=")" + what + ", " + code_ +
                           ", " + std::to_string(width) + " columns\"><pre lang=\"" + tagOf(code_) + "\">\n";
        for (std::size_t i = 0; i < lines.size(); ++i) html += lineOfCells(lineOf(lines, i), width, lost_);
        return html + "</pre></div>\n";
    }

    const std::string code_;
    LostCharacters lost_;
    std::string losses_;
};

constexpr const char* legend =
    "<p class=\"legend\"><span class=\"lost\">lost in a code page</span> <span class=\"beyond\">beyond the edge of the "
    "screen</span> <span class=\"symbol\">no shape of its own: obeyed or hidden by the terminal</span></p>\n";

constexpr const char* signature =
    "<div class=\"sign\"><span>Read and found right (name)</span><span>Date</span><span>Signature</span></div>\n";

}  // namespace

PreviewPage::PreviewPage(const PreviewCommand& preview, const Findings& findings)
    : preview_(preview), findings_(findings) {}

bool PreviewPage::add(const LanguageEntry& entry) {
    const std::string code = entry.code;
    const Findings findings = findingsOf(findings_, code);
    ShownLanguage language(preview_.directory, preview_.languageSet, code);
    std::string name;
    language.name().toUTF8String(name);
    const std::string title =
        std::string(entry.englishName) + " (<span lang=\"" + tagOf(code) + "\">" + escapeHtml(name) + "</span>)";
    rows_ += R"(<tr><th scope="row"><a href="#)" + code + "\">" + title + "</a></th>";
    parts_ += "<section class=\"language\">\n" + heading(2, title, code);

    const bool isLoaded = language.load();
    const LanguagePart part(entry, language, preview_.codePage);
    std::string screens;
    for (const int32_t width : widths) {
        const auto shown = isLoaded ? language.layOut({width, usualHeight}) : nullptr;
        if (!shown) break;
        screens += part.screens(width, *shown);
        if (width == usualWidth) {
            rows_ += number(shown->license().size()) + number(shown->pageCount()) +
                     number(tooWideLines(shown->license(), width)) + "<td class=\"losses\">" + part.losses() + "</td>";
        }
    }
    if (screens.empty()) rows_ += "<td colspan=\"4\">zev cannot show it</td>";
    rows_ += "<td>" + counted(findings) + "</td></tr>\n";
    parts_ += (screens.empty() ? "" : part.links()) + listOf(findings) + screens + signature + "</section>\n";
    return !screens.empty();
}

std::string PreviewPage::html() const {
    const std::string directory = escapeHtml(nameOfDirectory(preview_.directory));
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>Licence directory " +
           directory + "</title>\n<style>" + previewStyle() +
           "</style>\n</head>\n<body>\n<a class=\"skip\" href=\"#languages\">To the languages</a>\n<header>\n" +
           heading(1, "Licence directory " + directory) + "<p>As zev " + escapeHtml(runOptions.version) +
           " shows it on a terminal.</p>\n</header>\n<main>\n<section>\n" + heading(2, "Languages", "languages") +
           "<div class=\"table\"><table>\n<caption>On a terminal of 80 columns and 24 lines</caption>\n<thead><tr>"
           "<th scope=\"col\">Language</th><th scope=\"col\" class=\"number\">Lines</th><th scope=\"col\" "
           "class=\"number\">Pages</th>"
           "<th scope=\"col\" class=\"number\">Lines too wide</th><th scope=\"col\">Characters lost</th>"
           "<th scope=\"col\">Findings</th></tr></thead>\n<tbody>\n" +
           rows_ + "</tbody></table></div>\n" + legend + heading(2, "Findings", "findings") + listOf(findings_) +
           "</section>\n" + parts_ + "</main>\n</body>\n</html>\n";
}

}  // namespace zev
