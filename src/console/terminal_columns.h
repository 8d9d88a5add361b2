#pragma once

#include <unicode/unistr.h>

#include <cstdint>

namespace zev {

/// The columns that a terminal gives a character: 2 where Unicode calls it wide, 0 where it is drawn upon its neighbour
/// or not at all, else 1. zev itself counts by simpler rules, see displayWidth.
[[nodiscard]] int terminalColumns(UChar32 character);

/// The columns of a line up to its line feed; a tab goes on to the next multiple of eight.
[[nodiscard]] int64_t terminalColumns(const icu::UnicodeString& line);

}  // namespace zev
