#include "console/text_output.h"

#include <algorithm>
#include <iostream>
#include <span>

#include "console/terminal_geometry.h"
#include "lang/environment_locale.h"

namespace zev {

uint32_t writeLines(const TextLines& lines, std::size_t first, uint32_t most) {
    const auto rest = std::span(lines).subspan(first);
    const auto page = rest.first(std::min<std::size_t>(rest.size(), most));
    for (const icu::UnicodeString& line : page) std::cout << InCodePage{line};
    return static_cast<uint32_t>(page.size());
}

void writeLines(const TextLines& lines) { writeLines(lines, 0, unlimitedPage); }

void writeEmptyLines(std::size_t count) {
    while (count-- > 0) std::cout << '\n';
}

void fillPage(uint32_t shown, uint32_t pageLines) {
    if (pageLines != unlimitedPage) writeEmptyLines(pageLines - shown);
}

}  // namespace zev
