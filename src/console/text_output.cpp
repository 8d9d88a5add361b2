#include "console/text_output.h"

#include <algorithm>
#include <iostream>

#include "console/terminal_geometry.h"
#include "lang/environment_locale.h"

namespace zev {

uint32_t writeLines(const TextLines& lines, std::size_t first, uint32_t most) {
    const std::size_t count = std::min<std::size_t>(lines.size() - first, most);
    for (std::size_t index = first; index < first + count; ++index) std::cout << InCodePage{lines[index]};
    return static_cast<uint32_t>(count);
}

void writeLines(const TextLines& lines) { writeLines(lines, 0, unlimitedPage); }

void writeEmptyLines(std::size_t count) {
    while (count-- > 0) std::cout << '\n';
}

void fillPage(uint32_t shown, uint32_t pageLines) {
    if (pageLines != unlimitedPage) writeEmptyLines(pageLines - shown);
}

}  // namespace zev
