#include "authoring/preview_text.h"

#include <algorithm>
#include <ostream>
#include <span>

#include "authoring/code_page_loss.h"
#include "authoring/finding.h"
#include "authoring/terminal_columns.h"
#include "console/terminal_geometry.h"

namespace zev {

namespace {

class PreviewWriter {
public:
    PreviewWriter(std::ostream& out, const ShownLines& lines, const PreviewCommand& preview)
        : out_(out), lines_(lines), preview_(preview) {}

    void writeFigures(const std::string& code, const icu::UnicodeString& text) {
        out_ << "== " << code << ", " << counted(columns(), "column");
        if (!preview_.codePage.empty()) out_ << ", " << preview_.codePage;
        out_ << ": " << counted(lines_.license->size(), "line");
        if (preview_.pageHeight > 0) out_ << ", " << counted(lines_.pages(preview_.pageHeight), "page");
        if (!preview_.codePage.empty()) {
            out_ << ", " << counted(lossIn(preview_.codePage, text).count(), "character") << " lost";
        }
        out_ << ", " << counted(lines_.tooWide(preview_.width), "line") << " too wide\n";
    }

    void writeText() { writeLines(*lines_.license); }

    void writePages() {
        const uint32_t pageLines = lines_.pageLines(preview_.pageHeight);
        const std::size_t promptLines = std::max(lines_.endPrompt->size(), lines_.continuePrompt->size());
        std::span<const icu::UnicodeString> rest = *lines_.license;
        for (bool isFirst = true; isFirst || (!rest.empty() && pageLines > 0); isFirst = false) {
            if (!isFirst) writeEmptyLines(1);  // the answer
            const auto page = rest.first(std::min<std::size_t>(rest.size(), pageLines));
            rest = rest.subspan(page.size());
            writeLines(page);
            if (pageLines != unlimitedPage) writeEmptyLines(pageLines - page.size());
            const TextLines& prompt = rest.empty() ? *lines_.endPrompt : *lines_.continuePrompt;
            writeEmptyLines(2 + promptLines - prompt.size());
            writeLines(prompt);
        }
    }

private:
    [[nodiscard]] std::size_t columns() const { return static_cast<std::size_t>(preview_.width); }

    void writeEmptyLines(std::size_t count) { out_ << std::string(count, '\n'); }

    void writeLines(std::span<const icu::UnicodeString> lines) {
        for (const icu::UnicodeString& line : lines) {
            std::string bytes;
            line.toUTF8String(bytes);
            const bool isTooWide = terminalColumns(line) > preview_.width;
            out_ << (isTooWide ? "   > " : bytes == "\n" ? "" : "     ") << bytes;
        }
    }

    std::ostream& out_;
    const ShownLines& lines_;
    const PreviewCommand& preview_;
};

}  // namespace

void writePreview(std::ostream& out, const std::string& code, const ShownLanguage& language, const ShownLines& lines,
                  const PreviewCommand& preview) {
    PreviewWriter writer(out, lines, preview);
    writer.writeFigures(code, language.text());
    preview.pageHeight > 0 ? writer.writePages() : writer.writeText();
}

}  // namespace zev
