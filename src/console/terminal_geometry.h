#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace zev {

/// The screen that is assumed if nothing is known of a terminal, and the one for which texts are written and checked.
inline constexpr int32_t usualWidth = 80;   ///< columns
inline constexpr int32_t usualHeight = 24;  ///< lines

struct ScreenSize {
    int32_t width = usualWidth;
    int32_t height = usualHeight;
};

/// The lines that every page leaves free besides its text and its prompt.
inline constexpr int32_t reservedLines = 3;

/// The size of the terminal that a descriptor refers to. What the driver does not tell has the default value.
[[nodiscard]] ScreenSize sizeOfTerminal(int descriptor);

/// Measures the terminal on standard error; COLUMNS and LINES win over it. Writes the result to the file of `-dimout`.
[[nodiscard]] ScreenSize measureTerminal();

/// A page on which the whole text is shown at once.
inline constexpr uint32_t unlimitedPage = std::numeric_limits<uint32_t>::max();

/// How many lines of text a page of a screen takes above a prompt of `promptLines` lines. Deliberately none on a screen
/// with room for the prompt alone, where the text is never seen, and `unlimitedPage` on every lower one.
[[nodiscard]] uint32_t textLinesPerPage(int32_t height, std::size_t promptLines);

}  // namespace zev
