#include "authoring/preview_page.h"

#include <algorithm>
#include <span>

#include "app/run_options.h"
#include "authoring/html.h"
#include "authoring/language_profile.h"
#include "console/code_page_loss.h"
#include "console/non_vur_pager.h"
#include "console/screens.h"
#include "console/terminal_columns.h"
#include "files/license_text_set.h"

namespace zev {

namespace {

constexpr std::size_t shortSum = 16;  ///< digits of the fingerprint in a margin; the last sheet of a part has all

std::string number(std::size_t count) { return element("td", {{"class", "number"}}, std::to_string(count)); }

/// An element that is followed by a line feed, to keep the page readable as text.
std::string block(const char* name, std::initializer_list<Attribute> attributes, const std::string& content) {
    return element(name, attributes, content) + "\n";
}

/// The language tag of HTML, by which the browser chooses the shapes of Chinese characters.
std::string tagOf(const std::string& code) { return code == "zh" ? "zh-Hans" : code == "zh_TW" ? "zh-Hant" : code; }

std::string listOf(const Findings& findings) {
    if (findings.empty()) return block("p", {}, "No findings.");
    std::string list;
    const std::string lines = listFindings(findings);
    for (std::size_t begin = 0, end; (end = lines.find('\n', begin)) != std::string::npos; begin = end + 1) {
        const std::string line = lines.substr(begin, end - begin);
        const bool isError = line.find(": error: ") != std::string::npos;
        list += block("li", {{"class", isError ? "error" : ""}}, escapeHtml(line));
    }
    return block("ul", {{"class", "findings"}}, "\n" + list);
}

Findings findingsIn(std::span<const std::string> names, const Findings& findings) {
    Findings own;
    std::ranges::copy_if(findings, std::back_inserter(own), [&](const Finding& finding) {
        return std::ranges::find(names, finding.file.name) != names.end();
    });
    return own;
}

/// The SHA-256 of the named files, or of all if none is named, and the fingerprint of the set. Files that are not there
/// are left out.
std::string listOfSums(std::span<const std::string> names, const SetSums& sums) {
    std::string list;
    for (const auto& [name, sum] : sums.files) {
        const bool isListed = names.empty() || std::ranges::find(names, name) != names.end();
        if (isListed) list += element("dt", {}, "SHA-256 of " + name) + block("dd", {}, sum);
    }
    list += element("dt", {}, "Fingerprint of the set") + block("dd", {}, sums.fingerprint);
    return block("dl", {{"class", "sums"}}, "\n" + list);
}

std::string idAt(const std::string& id, int32_t width) { return id + "-" + std::to_string(width); }

std::string linksTo(const std::string& id) {
    std::string links;
    for (const int32_t width : PreviewPage::widths) {
        links += element("a", {{"href", "#" + idAt(id, width)}}, std::to_string(width) + " columns");
    }
    links += element("a", {{"href", "#languages"}}, "All texts");
    return block("nav", {{"aria-label", id}}, links);
}

/// The screens of one text. `codePages` are those in which lost characters are counted.
class TextScreens {
public:
    TextScreens(std::string id, std::string tag, std::vector<std::string> codePages, const icu::UnicodeString& text)
        : id_(std::move(id)), tag_(std::move(tag)), lost_{std::move(codePages), {}} {
        for (std::size_t i = 0; i < lost_.codePages.size(); ++i) {
            const CodePageLoss loss = lossIn(lost_.codePages[i], text);
            if (loss.count() > 0)
                losses_ += escapeHtml(lost_.codePages[i]) + ": " + std::to_string(loss.count()) + "<br>";
            for (const auto& [character, count] : loss.characters) lost_.masks[character] |= LossMask{1} << i;
        }
    }

    /// The cells of the overview; the figures are for a terminal of the usual size.
    [[nodiscard]] std::string figures(const TextLines& lines, std::size_t pages) const {
        return number(lines.size()) + number(pages) + number(tooWideLines(lines, usualWidth)) +
               element("td", {{"class", "losses"}}, losses_.empty() ? "none" : losses_);
    }

    [[nodiscard]] std::string heading(int32_t width, const TextLines& lines, std::size_t pages) const {
        return block("h3", {{"id", idAt(id_, width)}},
                     std::to_string(width) + " columns: " + counted(lines.size(), "line") + ", " +
                         counted(pages, "page") + " of " + std::to_string(usualHeight) + " lines, " +
                         counted(tooWideLines(lines, width), "line") + " too wide");
    }

    /// Lines as a terminal shows them, with a rule after the first `rule` of them if that is not 0.
    [[nodiscard]] std::string screen(int32_t width, const TextLines& lines, const std::string& what,
                                     std::size_t rule = 0, const std::string& ruleText = "") const {
        const std::size_t firstEnd = rule > 0 ? rule : lines.size();
        std::string content = "\n" + pre(width, lines, 0, firstEnd);
        if (rule > 0) content += block("div", {{"class", "rule"}, {"role", "separator"}}, ruleText);
        if (firstEnd < lines.size()) content += pre(width, lines, firstEnd, lines.size());
        const std::string label = what + ", " + id_ + ", " + std::to_string(width) + " columns";
        return block("div", {{"class", "screen scrolls"}, {"role", "group"}, {"aria-label", label}}, content);
    }

    static std::string at(int32_t width, const std::string& content) {
        const std::string kind = width == usualWidth ? "terminal usual" : "terminal";
        return block("div", {{"class", kind}, {"style", "--columns: " + std::to_string(width)}}, "\n" + content);
    }

private:
    [[nodiscard]] std::string pre(int32_t width, const TextLines& lines, std::size_t begin, std::size_t end) const {
        std::string html = "\n";
        for (std::size_t i = begin; i < end; ++i) html += lineOfCells(lineOf(lines, i), width, lost_);
        return block("pre", {{"lang", tag_}}, html);
    }

    std::string id_, tag_;
    LostCharacters lost_;
    std::string losses_;
};

std::string languageScreens(const TextScreens& text, int32_t width, const Screens& shown, const Boundary& boundary,
                            const std::string& code) {
    const std::string agreement = agreementName(code), information = informationName(code);
    const std::string rule = boundary.isInLine ? information + " begins within the line above, because " + agreement +
                                                     " ends without a line feed"
                                               : agreement + " ends here, and " + information + " begins";
    return TextScreens::at(width, text.heading(width, shown.license(), shown.pageCount()) +
                                      text.screen(width, shown.license(), "The text", boundary.line, rule) +
                                      block("h4", {}, "Asked under every page but the last") +
                                      text.screen(width, shown.continuePrompt(), "The prompt under a page") +
                                      block("h4", {}, "Asked at the end") +
                                      text.screen(width, shown.endPrompt(), "The prompt at the end") +
                                      block("h4", {}, "Asked after the answer \"2\"") +
                                      text.screen(width, shown.confirmation(), "The question whether to decline"));
}

/// The code pages of the languages, or only `codePage` if that is not empty.
std::vector<std::string> codePagesOf(std::span<const std::string> codes, const std::string& codePage) {
    if (!codePage.empty()) return {printable(codePage)};
    std::vector<std::string> pages;
    for (const std::string& code : codes) {
        for (const char* page : profileOf(code).codePages) {
            if (std::ranges::find(pages, page) == pages.end()) pages.emplace_back(page);
        }
    }
    return pages;
}

constexpr const char* legend =
    "<p class=\"legend\"><span class=\"lost\">lost in a code page</span> <span class=\"beyond\">beyond the edge of the "
    "screen</span> <span class=\"symbol\">no shape of its own: the terminal obeys or hides it</span></p>\n";

constexpr const char* overviewHead =
    "<thead><tr><th scope=\"col\">Text</th>"
    "<th scope=\"col\" class=\"number\">Lines</th><th scope=\"col\" class=\"number\">Pages</th>"
    "<th scope=\"col\" class=\"number\">Lines too wide</th><th scope=\"col\">Characters lost</th>"
    "<th scope=\"col\">Findings</th></tr></thead>\n";

std::string overviewCaption() {
    return "\n" + block("caption", {},
                        "On a terminal of " + std::to_string(usualWidth) + " columns and " +
                            std::to_string(usualHeight) + " lines");
}

std::string pageStyle() { return ":root { --tab-stop: " + std::to_string(tabStop) + " }\n" + previewStyle(); }

std::string sheetStyle(const std::string& name, const std::string& margin) {
    return "@page " + name + " { @bottom-left { content: " + cssString(margin) + " } }\n";
}

constexpr const char* signatureLines =
    "<div class=\"lines\"><span>Read and approved (name)</span><span>Date</span><span>Signature</span></div>\n";

}  // namespace

PreviewPage::PreviewPage(const PreviewCommand& preview, const Findings& findings, const SetSums& sums)
    : preview_(preview), findings_(findings), sums_(sums), directory_(nameOfDirectory(preview.directory)) {}

bool PreviewPage::addLanguage(const LanguageEntry& entry) {
    const std::string code = entry.code;
    ShownLanguage language(preview_.directory, preview_.languageSet, code);
    const std::string name = utf8Of(language.name());
    Part part{.id = code,
              .title = entry.englishName + (" (" + element("span", {{"lang", tagOf(code)}}, escapeHtml(name)) + ")"),
              .sheetTitle = entry.englishName + (" (" + code + ")"),
              .files = {agreementName(code), informationName(code)},
              .figures = {},
              .screens = {}};
    const bool isLoaded = language.load();
    const TextScreens text(code, tagOf(code), codePagesOf({&code, 1}, preview_.codePage), language.text());
    for (const int32_t width : widths) {
        const auto shown = isLoaded ? language.layOut({width, usualHeight}) : nullptr;
        if (!shown) break;
        part.screens += languageScreens(text, width, *shown, language.boundaryIn(shown->license(), width), code);
        if (width == usualWidth) part.figures = text.figures(shown->license(), shown->pageCount());
    }
    add(part);
    return !part.screens.empty();
}

void PreviewPage::addTerms(const ShownTerms& terms) {
    const std::string title = "Terms of other parties" + (terms.isSameInAll ? "" : " in " + terms.languages());
    Part part{.id = nonVurTermsName + (terms.isSameInAll ? "" : "-" + terms.codes.front()),
              .title = title,
              .sheetTitle = title,
              .files = {nonVurTermsName},
              .figures = {},
              .screens = {}};
    const TextScreens text(part.id, "", codePagesOf(terms.codes, preview_.codePage), terms.text);
    for (std::size_t i = 0; i < std::size(widths); ++i) {
        const TextLines& lines = *terms.lines[i];
        const std::size_t pages = pageCountOfTerms(lines, usualHeight);
        part.screens += TextScreens::at(
            widths[i], text.heading(widths[i], lines, pages) + text.screen(widths[i], lines, "The terms"));
        if (widths[i] == usualWidth) part.figures = text.figures(lines, pages);
    }
    part.screens += block("p", {}, "Asked under every page: " + element("code", {}, escapeHtml(morePrompt)));
    add(part);
}

void PreviewPage::add(const Part& part) {
    const Findings findings = findingsIn(part.files, findings_);
    rows_ += block("tr", {},
                   element("th", {{"scope", "row"}}, element("a", {{"href", "#" + part.id}}, part.title)) +
                       (part.figures.empty() ? element("td", {{"colspan", "4"}}, "zev cannot show it") : part.figures) +
                       element("td", {}, findings.empty() ? "none" : summaryOf(findings)));

    const std::string sums = listOfSums(part.files, sums_);
    const std::string signature =
        block("p", {}, "The signature is for the files with these SHA-256:") + sums + signatureLines;
    parts_ += block("section", {{"class", "part sheet-" + part.id}},
                    "\n" + block("h2", {{"id", part.id}}, part.title) + sums +
                        (part.screens.empty() ? "" : linksTo(part.id)) + listOf(findings) + part.screens +
                        block("div", {{"class", "sign"}}, "\n" + signature));

    const std::string id = "sheet-" + part.id;
    sheetStyle_ +=
        "." + id + " { page: " + id + " }\n" +
        sheetStyle(id, directory_ + ", " + part.sheetTitle + ", fingerprint " + sums_.fingerprint.substr(0, shortSum));
}

std::string PreviewPage::html() const {
    const std::string title = "Licence directory " + escapeHtml(directory_);
    const std::string head =
        "<meta charset=\"utf-8\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n" +
        block("title", {}, title) + block("style", {}, pageStyle() + sheetStyle("", directory_) + sheetStyle_);
    const std::string header = block("h1", {}, title) +
                               block("p", {}, "As zev " + escapeHtml(runOptions.version) + " shows it on a terminal.") +
                               listOfSums({}, {{}, sums_.fingerprint});
    const std::string overview =
        block("h2", {{"id", "languages"}}, "Texts") +
        block("div", {{"class", "scrolls"}},
              element("table", {}, overviewCaption() + overviewHead + block("tbody", {}, "\n" + rows_))) +
        legend + block("h2", {{"id", "findings"}}, "Findings") + listOf(findings_);
    const std::string files =
        block("h2", {{"id", "files"}}, "Files") +
        block("p", {},
              "The fingerprint is the SHA-256 of the lines that sha256sum prints for these files, in this order. "
              "zev-ask records it with every acceptance.") +
        listOfSums({}, sums_);
    const std::string body = block("a", {{"class", "skip"}, {"href", "#languages"}}, "To the texts") +
                             block("header", {}, "\n" + header) +
                             block("main", {},
                                   "\n" + block("section", {}, "\n" + overview) + parts_ +
                                       block("section", {{"class", "part"}}, "\n" + files));
    return "<!DOCTYPE html>\n" +
           block("html", {{"lang", "en"}}, "\n" + block("head", {}, "\n" + head) + block("body", {}, "\n" + body));
}

}  // namespace zev
