#pragma once

#include <unicode/unistr.h>

#include <cstddef>

#include "authoring/language_profile.h"

namespace zev {

/// UTF-8 that was read as a code page and encoded again, so that "é" became "Ã©".
struct DoubleEncoding {
    const char* codePage = "";
    std::size_t firstLine = 0;  ///< from 1
    std::size_t lines = 0;      ///< 0 where there is none
};

/// Looks for it with the Windows code pages of Western Europe and of the language, which may be null, and returns that
/// of the most lines. A line counts when all of it is UTF-8 in the code page, and hardly by accident.
[[nodiscard]] DoubleEncoding findDoubleEncoding(const icu::UnicodeString& text, const LanguageProfile* language);

}  // namespace zev
