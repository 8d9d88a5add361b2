#pragma once

#include <unicode/unistr.h>

#include <string>

namespace zev {

/// Whether the code page of the process shows the letters, digits and marks with which answers and prompts are written
/// as the bytes of ASCII, which every terminal takes for them.
[[nodiscard]] bool writesAscii();

/// Whether the catalogues can be read in the code page of the process: not where the byte of the backslash, with which
/// their escapes begin, is another character.
[[nodiscard]] bool readsCatalogues();

/// UTF-8 in the code page of the process.
[[nodiscard]] std::string inCodePage(const std::string& utf8);

/// Whether the code page of the process loses no more than one letter in a hundred of a text.
[[nodiscard]] bool isLegible(const icu::UnicodeString& text);

/// Text of a user in the code page of the process, such as an argument, in UTF-8. False when its bytes are not text in
/// that code page, or it is empty, too long, not all printable or has a blank at an end: then it cannot stand in a
/// record.
[[nodiscard]] bool toRecordText(const std::string& bytes, std::string& utf8);

/// UTF-8 in one line of printable characters: all else becomes "?".
[[nodiscard]] std::string printableText(const std::string& utf8);

}  // namespace zev
