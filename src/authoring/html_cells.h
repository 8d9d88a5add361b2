#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zev {

/// Which code pages lose a character: a bit each.
using LossMask = uint32_t;

/// The names behind the bits, and the characters that are lost to any.
struct LostCharacters {
    std::vector<std::string> codePages;
    std::map<UChar32, LossMask> masks;
};

/// Text with the characters that HTML takes for its own replaced.
[[nodiscard]] std::string escapeHtml(const std::string& text);

/// A line as it stands on the cells of a terminal of `width` columns, with its line feed: wide characters in boxes of
/// two cells each, lost ones and those beyond the edge marked, and characters without a shape of their own as symbols.
[[nodiscard]] std::string lineOfCells(const icu::UnicodeString& line, int32_t width, const LostCharacters& lost);

}  // namespace zev
