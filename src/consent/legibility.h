#pragma once

#include <unicode/unistr.h>

#include <string>

namespace zev {

/// Whether the code page of the process writes the letters, digits and marks of answers and prompts as the bytes of
/// ASCII, which every terminal understands.
[[nodiscard]] bool writesAscii();

/// Whether the catalogues can be read in the code page of the process. They cannot if the byte of the backslash, with
/// which their escapes begin, is another character there.
[[nodiscard]] bool readsCatalogues();

/// UTF-8 in the code page of the process.
[[nodiscard]] std::string inCodePage(const std::string& utf8);

/// Whether the code page of the process can show a text: it loses at most one letter in a hundred.
[[nodiscard]] bool isLegible(const icu::UnicodeString& text);

/// Converts a text of the user, such as an argument, from the code page of the process to UTF-8. False if it cannot be
/// a field of a record: its bytes are not text in that code page, or it is empty, longer than 200 characters, not all
/// printable, or has a blank at an end.
[[nodiscard]] bool toRecordText(const std::string& bytes, std::string& utf8);

/// The text with each character that is not printable, such as a line feed, replaced by "?".
[[nodiscard]] std::string printableText(const std::string& utf8);

}  // namespace zev
