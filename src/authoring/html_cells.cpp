#include "authoring/html_cells.h"

#include <unicode/uchar.h>

#include "console/code_page_loss.h"
#include "console/terminal_columns.h"

namespace zev {

namespace {

/// What neighbouring characters must share to stand in one element.
struct Style {
    bool isWide = false;
    bool isBeyondEdge = false;
    bool isSymbol = false;
    LossMask lost = 0;
    UChar32 symbolOf = 0;

    bool operator==(const Style&) const = default;
};

bool hasShape(UChar32 character) {
    constexpr uint32_t shapeless = U_GC_C_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    return (U_GET_GC_MASK(character) & shapeless) == 0 || u_charType(character) == U_PRIVATE_USE_CHAR;
}

UChar32 symbolFor(UChar32 character) {
    constexpr UChar32 controlPictures = 0x2400, deletePicture = 0x2421, replacement = 0xFFFD;
    if (character < 0x20) return controlPictures + character;
    return character == 0x7F ? deletePicture : replacement;
}

std::string namesOf(LossMask mask, const LostCharacters& lost) {
    std::string names;
    for (std::size_t i = 0; i < lost.codePages.size(); ++i) {
        if ((mask >> i & 1U) != 0) names += (names.empty() ? "" : ", ") + lost.codePages[i];
    }
    return names;
}

/// A run of characters of one style.
std::string element(const Style& style, const icu::UnicodeString& run, const LostCharacters& lost) {
    std::string bytes;
    std::string html = escapeHtml(run.toUTF8String(bytes));
    if (style.isWide) html = "<b style=\"--n:" + std::to_string(run.countChar32()) + "\">" + html + "</b>";
    if (style.isSymbol) html = "<i title=\"" + codePointName(style.symbolOf) + "\">" + html + "</i>";
    if (style.lost != 0) html = "<mark title=\"not in " + namesOf(style.lost, lost) + "\">" + html + "</mark>";
    return style.isBeyondEdge ? "<u>" + html + "</u>" : html;
}

}  // namespace

std::string escapeHtml(const std::string& text) {
    std::string html;
    for (const char character : text) {
        switch (character) {
            case '&': html += "&amp;"; break;
            case '<': html += "&lt;"; break;
            case '>': html += "&gt;"; break;
            case '"': html += "&quot;"; break;
            default: html += character;
        }
    }
    return html;
}

std::string lineOfCells(const icu::UnicodeString& line, int32_t width, const LostCharacters& lost) {
    std::string html;
    Style style;
    icu::UnicodeString run;
    int64_t column = 0;
    for (int32_t i = 0; i < line.length() - 1;) {
        const UChar32 character = line.char32At(i);
        i += U16_LENGTH(character);
        const int columns = terminalColumns(character);
        const auto loss = lost.masks.find(character);
        column += columns;
        Style next{.isWide = columns == 2,
                   .isBeyondEdge = column > width,
                   .isSymbol = !hasShape(character),
                   .lost = loss != lost.masks.end() ? loss->second : 0};
        if (next.isSymbol) next.symbolOf = character;
        if (next != style && !run.isEmpty()) {
            html += element(style, run, lost);
            run.remove();
        }
        style = next;
        run.append(next.isSymbol ? symbolFor(character) : character);
    }
    if (!run.isEmpty()) html += element(style, run, lost);
    return html + "\n";
}

}  // namespace zev
