#pragma once

#include <unicode/unistr.h>

#include <cstdint>

namespace zev {

/// The columns that a terminal gives a character: 2 if it is wide by Unicode Standard Annex #11, 0 if it is drawn over
/// its neighbour or not at all, otherwise 1. zev itself counts by simpler rules, see displayWidth.
[[nodiscard]] int terminalColumns(UChar32 character);

/// The columns from one tab stop to the next.
inline constexpr int64_t tabStop = 8;

/// The columns of a line up to its line feed; a tab goes on to the next tab stop.
[[nodiscard]] int64_t terminalColumns(const icu::UnicodeString& line);

}  // namespace zev
