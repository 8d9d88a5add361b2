#pragma once

#include <span>

namespace zev {

struct LicenseDialog;

/// The size in bytes of every answer buffer.
inline constexpr std::size_t answerSize = 80;

/// Reads the next line of standard input into `buffer` as a C string, echoes it when input is no terminal, and logs it.
/// After the end of input, and after a line that does not fit, this and every later answer is empty (the cut line
/// itself is kept): deliberately there is no way back and no exit.
void readInput(LicenseDialog& dialog, std::span<char> buffer);

}  // namespace zev
