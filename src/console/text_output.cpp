#include "console/text_output.h"

#include <iostream>

#include "lang/environment_locale.h"

namespace zev {

void writeLines(const TextLines& lines) { writePage(lines, {0, lines.size(), 0}); }

void writeEmptyLines(std::size_t count) {
    while (count-- > 0) std::cout << '\n';
}

void writePage(const TextLines& lines, const Page& page) {
    for (std::size_t index = page.begin; index < page.end; ++index) std::cout << InCodePage{lines[index]};
    writeEmptyLines(page.emptyLines);
}

}  // namespace zev
