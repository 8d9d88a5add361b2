#include "authoring/preview_text.h"

#include <algorithm>
#include <ostream>

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

    void writeText() { writeLines(*lines_.license, 0, lines_.license->size()); }

    void writePages() {
        const uint32_t pageLines = lines_.pageLines(preview_.pageHeight);
        const std::size_t promptLines = std::max(lines_.endPrompt->size(), lines_.continuePrompt->size());
        const std::size_t all = lines_.license->size();
        for (std::size_t next = 0; next < all;) {
            if (next > 0) writeEmptyLines(1);  // the answer
            const std::size_t shown = std::min<std::size_t>(all - next, pageLines);
            writeLines(*lines_.license, next, shown);
            if (pageLines != unlimitedPage) writeEmptyLines(pageLines - shown);
            next += shown;
            const TextLines& prompt = next == all ? *lines_.endPrompt : *lines_.continuePrompt;
            writeEmptyLines(2 + promptLines - prompt.size());
            writeLines(prompt, 0, prompt.size());
            if (shown == 0) break;  // no text is ever seen
        }
    }

private:
    [[nodiscard]] std::size_t columns() const { return static_cast<std::size_t>(preview_.width); }

    void writeEmptyLines(std::size_t count) { out_ << std::string(count, '\n'); }

    void writeLines(const TextLines& lines, std::size_t first, std::size_t count) {
        for (std::size_t i = first; i < first + count; ++i) {
            const icu::UnicodeString line = lineOf(lines, i);
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
