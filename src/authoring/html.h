#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace zev {

/// Text with the characters that HTML takes for its own replaced.
[[nodiscard]] std::string escapeHtml(const std::string& text);

struct Attribute {
    const char* name;
    std::string value;  ///< as text; an attribute without a value is left out
};

/// An element around `content`, which is HTML.
[[nodiscard]] std::string element(const char* name, std::initializer_list<Attribute> attributes,
                                  const std::string& content);

/// A text as a string of CSS, with its quotes.
[[nodiscard]] std::string cssString(const std::string& text);

/// The style sheet of the preview page, as it stands in preview.css.
[[nodiscard]] const char* previewStyle();

/// Which code pages lose a character: one bit for each.
using LossMask = uint32_t;

/// The names behind the bits, and the characters that at least one of them loses.
struct LostCharacters {
    std::vector<std::string> codePages;
    std::map<UChar32, LossMask> masks;
};

/// A line as it stands on the cells of a terminal of `width` columns, with its line feed: lost characters and those
/// beyond the edge are marked, and characters without a shape of their own shown as symbols. Runs of wide characters
/// end on the grid whatever their font, and the text of the line stays in one piece, so that a browser finds phrases in
/// it.
[[nodiscard]] std::string lineOfCells(const icu::UnicodeString& line, int32_t width, const LostCharacters& lost);

}  // namespace zev
