#include "authoring/preview_text.h"

#include <ostream>

#include "authoring/finding.h"
#include "console/code_page_loss.h"
#include "console/terminal_columns.h"

namespace zev {

namespace {

class PreviewWriter {
public:
    PreviewWriter(std::ostream& out, const Screens& screens, const PreviewCommand& preview)
        : out_(out), screens_(screens), preview_(preview) {}

    void writeFigures(const std::string& code, const icu::UnicodeString& text) {
        out_ << "== " << code << ", " << counted(columns(), "column");
        if (!preview_.codePage.empty()) out_ << ", " << preview_.codePage;
        out_ << ": " << counted(screens_.license().size(), "line");
        if (preview_.pageHeight > 0) out_ << ", " << counted(screens_.pageCount(), "page");
        if (!preview_.codePage.empty()) {
            out_ << ", " << counted(lossIn(preview_.codePage, text).count(), "character") << " lost";
        }
        out_ << ", " << counted(tooWideLines(screens_.license(), preview_.width), "line") << " too wide\n";
    }

    void writeText() { writeLines(screens_.license(), {0, screens_.license().size()}); }

    void writePages() {
        for (Page page = screens_.firstPage();; page = screens_.pageAfter(page)) {
            writeLines(screens_.license(), page);
            const Prompt prompt = screens_.promptBelow(page);
            writeEmptyLines(prompt.emptyLines);
            writeLines(prompt.lines, {0, prompt.lines.size()});
            if (page.end == screens_.license().size() || page.begin == page.end) break;  // or no text is ever seen
            writeEmptyLines(1);                                                          // the answer
        }
    }

private:
    [[nodiscard]] std::size_t columns() const { return static_cast<std::size_t>(preview_.width); }

    void writeEmptyLines(std::size_t count) { out_ << std::string(count, '\n'); }

    void writeLines(const TextLines& lines, Page page) {
        for (std::size_t i = page.begin; i < page.end; ++i) {
            const icu::UnicodeString line = lineOf(lines, i);
            std::string bytes;
            line.toUTF8String(bytes);
            const bool isTooWide = terminalColumns(line) > preview_.width;
            out_ << (isTooWide ? "   > " : bytes == "\n" ? "" : "     ") << bytes;
        }
        writeEmptyLines(page.emptyLines);
    }

    std::ostream& out_;
    const Screens& screens_;
    const PreviewCommand& preview_;
};

}  // namespace

void writePreview(std::ostream& out, const std::string& code, const ShownLanguage& language, const Screens& screens,
                  const PreviewCommand& preview) {
    PreviewWriter writer(out, screens, preview);
    writer.writeFigures(code, language.text());
    preview.pageHeight > 0 ? writer.writePages() : writer.writeText();
}

}  // namespace zev
