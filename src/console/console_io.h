#pragma once

#include <cstddef>
#include <span>

#include "console/line_breaking.h"
#include "console/screens.h"

namespace zev {

/// All write to standard output.
void writeLines(const TextLines& lines);
void writeEmptyLines(std::size_t count);
void writePage(const TextLines& lines, const Page& page);

/// The size in bytes of every answer buffer.
inline constexpr std::size_t answerSize = 80;

/// Reads the next line of standard input into `buffer` as a C string, echoes it if the input is not a terminal, and
/// logs it. After the end of input every answer is empty. A line that does not fit is cut, and every answer after it is
/// empty. Deliberately nothing resets this state or ends the run.
void readInput(LicenseDialog& dialog, std::span<char> buffer);

}  // namespace zev
