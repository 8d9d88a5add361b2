#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "authoring/language_profile.h"

namespace zev {

enum class Encoding {
    utf16,              ///< as zev reads it: by its mark, without one big-endian
    utf16LittleEndian,  ///< without a mark
    utf8,
    utf32,
    codePage,  ///< any other, of 8 bits or several bytes
};

struct DecodedText {
    Encoding encoding = Encoding::utf16;
    icu::UnicodeString text;  ///< without the mark at the start; empty for the last two encodings
    bool oddByte = false;     ///< UTF-16, and the last byte is half a code unit
};

/// Tells how the bytes of a licence text are encoded, and decodes them. The language helps where the bytes leave it
/// open; null for the files that serve all languages.
[[nodiscard]] DecodedText decodeText(std::string_view bytes, const LanguageProfile* language);

/// Decodes UTF-8, without its mark. Returns the number of bytes that are well-formed, which is all of them on success.
[[nodiscard]] std::size_t decodeUtf8(std::string_view bytes, icu::UnicodeString& text);

/// UTF-16 in big-endian order behind a mark.
[[nodiscard]] std::string encodeUtf16(const icu::UnicodeString& text);

/// UTF-8 that was read as a code page and encoded again, so that "é" became "Ã©".
struct DoubleEncoding {
    const char* codePage = "";
    int32_t first = 0;      ///< where the first such line begins, in code units
    std::size_t lines = 0;  ///< 0 if there is none
};

/// Looks for it with the Windows code pages of Western Europe and of the language, which may be null, and returns that
/// of the most lines. A line counts if all of it is UTF-8 in the code page, hardly by accident, and what it decodes to
/// is in a code page of the language or of Western Europe.
[[nodiscard]] DoubleEncoding findDoubleEncoding(const icu::UnicodeString& text, const LanguageProfile* language);

}  // namespace zev
