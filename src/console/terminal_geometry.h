#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace zev {

/// The size of a screen, by default that of a terminal of which nothing is known.
struct ScreenSize {
    int32_t width = 80;   ///< columns
    int32_t height = 24;  ///< lines
};

/// The lines that every page leaves free besides its text and its prompt.
inline constexpr int32_t reservedLines = 3;

/// What the driver of the terminal behind a descriptor tells of its size; the default for what it does not tell.
[[nodiscard]] ScreenSize sizeOfTerminal(int descriptor);

/// Measures the terminal on standard error; COLUMNS and LINES win over it. Writes the result to the file of `-dimout`.
[[nodiscard]] ScreenSize measureTerminal();

/// A page on which the whole text is shown at once.
inline constexpr uint32_t unlimitedPage = std::numeric_limits<uint32_t>::max();

/// How many lines of text a page of a screen takes above a prompt of `promptLines` lines. Deliberately none on a screen
/// with room for the prompt alone, where the text is never seen, and `unlimitedPage` on every lower one.
[[nodiscard]] uint32_t textLinesPerPage(int32_t height, std::size_t promptLines);

}  // namespace zev
