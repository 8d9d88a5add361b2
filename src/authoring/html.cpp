#include "authoring/html.h"

#include <unicode/uchar.h>

#include <array>
#include <cstdio>

#include "authoring/finding.h"
#include "console/code_page_loss.h"
#include "console/terminal_columns.h"

namespace zev {

namespace {

/// How a character is shown. Neighbours of the same style share an element.
struct CellStyle {
    bool isWide = false;
    bool isBeyondEdge = false;
    bool isSymbol = false;
    LossMask lost = 0;
    UChar32 symbolOf = 0;

    bool operator==(const CellStyle&) const = default;
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

/// A run of characters of one style; `end` is the cell of the page after its last one.
std::string runOfCells(const CellStyle& style, const icu::UnicodeString& run, int32_t end, const LostCharacters& lost) {
    std::string html = escapeHtml(utf8Of(run));
    if (style.isWide) {
        const std::string cells = "--n:" + std::to_string(run.countChar32()) + ";--c:" + std::to_string(end);
        html = element("b", {{"style", cells}}, html);
    }
    if (style.isSymbol) html = element("i", {{"title", codePointName(style.symbolOf)}}, html);
    if (style.lost != 0) html = element("mark", {{"title", "not in " + namesOf(style.lost, lost)}}, html);
    return style.isBeyondEdge ? element("u", {}, html) : html;
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

std::string element(const char* name, std::initializer_list<Attribute> attributes, const std::string& content) {
    std::string html = std::string("<") + name;
    for (const auto& [attribute, value] : attributes) {
        if (!value.empty()) html += std::string(" ") + attribute + "=\"" + escapeHtml(value) + "\"";
    }
    return html + ">" + content + "</" + name + ">";
}

std::string cssString(const std::string& text) {
    std::string css = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        // Signs of ASCII can have a meaning in CSS; letters, digits and other characters have none.
        if (byte >= 0x80 || u_isalnum(byte)) {
            css += character;
            continue;
        }
        std::array<char, 8> escaped;
        std::snprintf(escaped.data(), escaped.size(), "\\%x ", static_cast<unsigned>(byte));
        css += escaped.data();
    }
    return css + "\"";
}

std::string lineOfCells(const icu::UnicodeString& line, int32_t width, const LostCharacters& lost) {
    std::string html;
    CellStyle style;
    icu::UnicodeString run;
    int64_t column = 0;  // of the terminal
    int32_t cells = 0;   // of the page, which shows a symbol for a character that takes no column
    for (int32_t i = 0; i < line.length() - 1;) {
        const UChar32 character = line.char32At(i);
        i += U16_LENGTH(character);
        const int columns = terminalColumns(character);
        const auto loss = lost.masks.find(character);
        column += columns;
        CellStyle next{.isWide = columns == 2,
                       .isBeyondEdge = column > width,
                       .isSymbol = !hasShape(character),
                       .lost = loss != lost.masks.end() ? loss->second : 0};
        if (next.isSymbol) next.symbolOf = character;
        if (next != style && !run.isEmpty()) {
            html += runOfCells(style, run, cells, lost);
            run.remove();
        }
        style = next;
        cells += next.isSymbol ? 1 : columns;
        run.append(next.isSymbol ? symbolFor(character) : character);
    }
    if (!run.isEmpty()) html += runOfCells(style, run, cells, lost);
    return html + "\n";
}

}  // namespace zev
