#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "authoring/language_profile.h"

namespace zev {

enum class Encoding {
    utf16,              ///< as zev reads it: in the order of its byte order mark, or big-endian without one
    utf16LittleEndian,  ///< without a byte order mark
    utf8,
    utf32,
    codePage,  ///< any other, with one or several bytes for a character
};

struct DecodedText {
    Encoding encoding = Encoding::utf16;
    icu::UnicodeString text;  ///< without its byte order mark; empty for the last two encodings
    bool oddByte = false;     ///< the text is UTF-16, and its last byte is half a code unit
};

/// Tells how the bytes of a licence text are encoded, and decodes them. If the bytes alone do not tell, the script of
/// the language does; the language is null for the files that serve all languages.
[[nodiscard]] DecodedText decodeText(std::string_view bytes, const LanguageProfile* language);

/// Decodes UTF-8 up to the first byte that is not well-formed, and drops a byte order mark at the start. Returns the
/// number of bytes before that one, which is all of them on success.
[[nodiscard]] std::size_t decodeUtf8(std::string_view bytes, icu::UnicodeString& text);

/// UTF-16 in big-endian order, after a byte order mark.
[[nodiscard]] std::string encodeUtf16(const icu::UnicodeString& text);

/// UTF-8 that was read as a code page and encoded again, so that "é" became "Ã©".
struct DoubleEncoding {
    const char* codePage = "";
    int32_t first = 0;      ///< where the first such line begins, in code units
    std::size_t lines = 0;  ///< 0 if there is none
};

/// Looks for it with the Windows code pages of Western Europe and of the language, which may be null, and returns the
/// one with the most lines. A line counts if its bytes in the code page are UTF-8, hardly by chance, and if a code page
/// of the language or of Western Europe has the characters that they decode to.
[[nodiscard]] DoubleEncoding findDoubleEncoding(const icu::UnicodeString& text, const LanguageProfile* language);

}  // namespace zev
