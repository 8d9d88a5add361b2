#include "console/settled_breaks.h"

#include <unicode/uchar.h>

namespace zev {

namespace {

enum class Break { always, never, depends };

/// The line-breaking class of a code unit, with Hangul syllables among the ideographs: here they behave alike.
int32_t breakClass(char16_t unit) {
    const int32_t value = u_getIntPropertyValue(unit, UCHAR_LINE_BREAK);
    return value == U_LB_H2 || value == U_LB_H3 ? int32_t{U_LB_IDEOGRAPHIC} : value;
}

/// Whether a unit of this class only affects the unit after it, or the one after the blank that follows it.
bool isPlain(int32_t value) {
    return value == U_LB_ALPHABETIC || value == U_LB_IDEOGRAPHIC || value == U_LB_CLOSE_PUNCTUATION ||
           value == U_LB_INFIX_NUMERIC;
}

Break breakAt(std::u16string_view text, std::size_t at) {
    const int32_t before = breakClass(text[at - 1]);
    const int32_t after = breakClass(text[at]);
    const bool isWord = after == U_LB_ALPHABETIC || after == U_LB_IDEOGRAPHIC;
    if (before == U_LB_SPACE) {
        return isWord && at > 1 && isPlain(breakClass(text[at - 2])) ? Break::always : Break::depends;
    }
    if (!isPlain(before)) return Break::depends;
    if (after == U_LB_SPACE || after == U_LB_CLOSE_PUNCTUATION || after == U_LB_INFIX_NUMERIC) return Break::never;
    if (!isWord) return Break::depends;
    const bool holdsLetters = before == U_LB_ALPHABETIC || before == U_LB_INFIX_NUMERIC;
    return holdsLetters && after == U_LB_ALPHABETIC ? Break::never : Break::always;
}

}  // namespace

int32_t settledBreak(std::u16string_view text, int32_t begin, int32_t reach) {
    auto at = static_cast<std::size_t>(reach);
    if (reach > begin && text[at - 1] == u'\n') return reach;
    for (; at > static_cast<std::size_t>(begin) && at < text.size(); --at) {
        switch (breakAt(text, at)) {
            case Break::always: return static_cast<int32_t>(at);
            case Break::depends: return begin;
            case Break::never: break;
        }
    }
    return begin;
}

}  // namespace zev
