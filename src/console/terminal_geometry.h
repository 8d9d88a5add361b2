#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace zev {

extern int32_t screenWidth;   ///< columns
extern int32_t screenHeight;  ///< lines

/// The lines that every page leaves free besides its text and its prompt.
inline constexpr int32_t reservedLines = 3;

/// Measures the terminal on standard error; COLUMNS and LINES win over it. What neither tells stays as it was. Writes
/// the result to the file of `-dimout`.
void measureTerminal();

/// A page on which the whole text is shown at once.
inline constexpr uint32_t unlimitedPage = std::numeric_limits<uint32_t>::max();

/// How many lines of text a page takes above a prompt of `promptLines` lines. Deliberately none on a screen with room
/// for the prompt alone, where the text is never seen, and `unlimitedPage` on every lower one.
[[nodiscard]] uint32_t textLinesPerPage(std::size_t promptLines);

}  // namespace zev
