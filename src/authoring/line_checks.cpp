#include "authoring/line_checks.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <vector>

#include "app/run_options.h"
#include "authoring/shown_language.h"
#include "console/terminal_columns.h"
#include "console/terminal_geometry.h"

namespace zev {

namespace {

// If a text was wrapped for more columns than the terminal has, zev shows a long line and a short one in turn. Texts
// are wrapped for up to 120 columns. Longer lines are paragraphs, which zev wraps itself. If most lines are so long,
// the shorter ones are paragraphs too.
constexpr int64_t mostWrappedColumns = 120;
constexpr std::size_t leastShareOfRagged = 10;  ///< one in so many lines; fewer are headings and addresses

struct TextLine {
    int32_t begin, end;  ///< code units, without the line end
    int64_t columns;
    bool isBlank;
};

std::vector<TextLine> measuredLines(const icu::UnicodeString& text) {
    std::vector<TextLine> lines;
    for (int32_t begin = 0, next; begin < text.length(); begin = next) {
        int32_t end = lineEnd(text, begin);
        next = end + 1;
        while (end > begin && u_isUWhiteSpace(text[end - 1])) --end;
        lines.push_back({begin, end, terminalColumns(text.tempSubStringBetween(begin, end)), end == begin});
    }
    return lines;
}

Findings checkCarriageReturns(const SetText& text) {
    std::size_t atLineEnds = 0, elsewhere = 0;
    int32_t first = 0;
    const icu::UnicodeString& units = text.text;
    for (int32_t i = units.indexOf(u'\r'); i >= 0; i = units.indexOf(u'\r', i + 1)) {
        if (units.charAt(i + 1) == u'\n') {
            ++atLineEnds;
        } else if (elsewhere++ == 0) {
            first = i;
        }
    }
    Findings findings;
    if (atLineEnds > 0) {
        findings.push_back(text.finding(Severity::warning, "cr-lf",
                                        countedName("CR LF line ends", atLineEnds) + "; the copies get them too"));
    }
    if (elsewhere > 0) {
        findings.push_back(text.findingAt(
            first, Severity::warning, "carriage-return",
            countedName("CR in a line", elsewhere) + ": what follows it is shown over what comes before it"));
    }
    return findings;
}

Findings checkWrapping(const SetText& text, const std::vector<TextLine>& lines) {
    std::size_t ragged = 0, longer = 0, shown = 0;
    int32_t first = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].isBlank) continue;
        ++shown;
        if (lines[i].columns > mostWrappedColumns) ++longer;
        const bool isFollowed = i + 1 < lines.size() && !lines[i + 1].isBlank;
        if (lines[i].columns <= usualWidth || lines[i].columns > mostWrappedColumns || !isFollowed) continue;
        if (ragged++ == 0) first = lines[i].begin;
    }
    if (leastShareOfRagged * ragged <= shown || ragged <= longer) return {};
    return {text.findingAt(first, Severity::warning, "ragged",
                           std::to_string(ragged) + " of " + counted(shown, "line") + " are wrapped at more than " +
                               std::to_string(usualWidth) +
                               " columns: zev shows a long line and a short one in turn. "
                               "Make each paragraph one line, or wrap it for fewer columns")};
}

Findings checkWideCharacters(const SetText& text, const std::vector<TextLine>& lines, const ShownLanguage& language) {
    if (text.file.language == nullptr || text.file.language->doubleWidth) return {};
    std::size_t count = 0;
    int32_t first = 0;
    for (const TextLine& line : lines) {
        if (line.columns <= usualWidth) continue;
        std::vector<int32_t> wide;
        for (int32_t i = line.begin, next; i < line.end; i = next) {
            const UChar32 character = text.text.char32At(i);
            next = i + U16_LENGTH(character);
            if (terminalColumns(character) == 2) wide.push_back(i);
        }
        if (wide.empty()) continue;
        // The line feed counts as a column.
        const int32_t next = lineEnd(text.text, line.begin) + 1;
        const auto shown = language.layOutText(text.text.tempSubStringBetween(line.begin, next), usualWidth);
        if (!shown || tooWideLines(*shown, usualWidth) == 0) continue;
        if (count == 0) first = wide.front();
        count += wide.size();
    }
    if (count == 0) return {};
    return {text.findingAt(
        first, Severity::warning, "wide-character",
        countedName("wide character", count) + ": counted as one column and shown as two, so its line overflows")};
}

Findings checkWords(const SetText& text, const ShownLanguage& language) {
    int32_t position = 0;
    if (!language.hasTooWideWord(text.text, usualWidth, position)) return {};
    return {text.findingAt(position, Severity::warning, "wide-word",
                           "a word is too wide for a line of " + std::to_string(usualWidth) +
                               " columns: it is cut, or its line overflows")};
}

}  // namespace

Findings checkLines(const SetText& text) {
    Findings findings = checkCarriageReturns(text);
    if (text.file.kind == TextKind::agreement && !text.text.endsWith(u"\n")) {
        findings.push_back(text.finding(Severity::warning, "last-line",
                                        "no line feed at the end; the information begins in the last line"));
    }
    if (text.file.kind == TextKind::notices) return findings;
    const std::vector<TextLine> lines = measuredLines(text.text);
    const ShownLanguage language("", defaultLanguageSet,
                                 text.file.language != nullptr ? text.file.language->code : "en");
    append(findings, checkWrapping(text, lines));
    append(findings, checkWideCharacters(text, lines, language));
    append(findings, checkWords(text, language));
    return findings;
}

}  // namespace zev
