#include "console/terminal_columns.h"

#include <unicode/uchar.h>

namespace zev {

int terminalColumns(UChar32 character) {
    constexpr uint32_t drawnUpon = U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK | U_GC_CC_MASK;
    if (character >= 0x20 && character < 0x7F) return 1;
    if ((U_GET_GC_MASK(character) & drawnUpon) != 0) return 0;
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

int64_t terminalColumns(const icu::UnicodeString& line) {
    int64_t columns = 0;
    for (int32_t i = 0; i < line.length() && line[i] != u'\n';) {
        const UChar32 character = line.char32At(i);
        i += U16_LENGTH(character);
        columns = character == u'\t' ? (columns / tabStop + 1) * tabStop : columns + terminalColumns(character);
    }
    return columns;
}

}  // namespace zev
