#pragma once

#include <cstddef>
#include <cstdint>

namespace zev {

extern int32_t screenWidth;   ///< columns
extern int32_t screenHeight;  ///< lines

/// The lines that every page leaves free besides its text and its prompt.
inline constexpr int32_t reservedLines = 3;

/// Measures the terminal on standard error; COLUMNS and LINES win over it. What neither tells stays as it was. Writes
/// the result to the file of `-dimout`.
void measureTerminal();

/// How many lines of text a page takes above a prompt of `promptLines` lines. Deliberately unsigned: a screen that is
/// too low for any text wraps to a page without limit, on which the whole text is shown at once.
[[nodiscard]] uint32_t textLinesPerPage(std::size_t promptLines);

/// Whether the number of lines comes from such a wrap.
[[nodiscard]] bool isWithoutLimit(uint32_t pageLines);

}  // namespace zev
