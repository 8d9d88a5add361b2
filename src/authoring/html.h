#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace zev {

/// Text in HTML: the characters that have a meaning in HTML are replaced.
[[nodiscard]] std::string escapeHtml(const std::string& text);

struct Attribute {
    const char* name;
    std::string value;  ///< as text, not HTML; an attribute with an empty value is left out
};

/// An element around `content`, which is HTML.
[[nodiscard]] std::string element(const char* name, std::initializer_list<Attribute> attributes,
                                  const std::string& content);

/// A text as a string in CSS, with quotation marks around it.
[[nodiscard]] std::string cssString(const std::string& text);

/// The style sheet of the preview page: the content of preview.css.
[[nodiscard]] const char* previewStyle();

/// Which code pages lose a character: one bit for each.
using LossMask = uint32_t;

/// The code pages, in the order of the bits, and the characters that at least one of them loses.
struct LostCharacters {
    std::vector<std::string> codePages;
    std::map<UChar32, LossMask> masks;
};

/// A line as a terminal of `width` columns shows it, with its line feed. Lost characters and those beyond the edge are
/// marked. Characters without a shape of their own are shown as symbols. Whatever the font, a run of wide characters
/// ends at the edge of a cell. No element divides the text in a way that keeps a browser from finding a phrase in it.
[[nodiscard]] std::string lineOfCells(const icu::UnicodeString& line, int32_t width, const LostCharacters& lost);

}  // namespace zev
