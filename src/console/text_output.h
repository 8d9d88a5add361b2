#pragma once

#include <cstddef>
#include <cstdint>

#include "console/line_breaking.h"

namespace zev {

/// Writes up to `most` lines to standard output, the first of them `lines[first]`. Returns how many were written.
uint32_t writeLines(const TextLines& lines, std::size_t first, uint32_t most);

void writeLines(const TextLines& lines);

void writeEmptyLines(std::size_t count);

/// Fills a page up below its `shown` lines; a page without limit is left as it is.
void fillPage(uint32_t shown, uint32_t pageLines);

}  // namespace zev
