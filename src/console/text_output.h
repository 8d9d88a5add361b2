#pragma once

#include <cstddef>

#include "console/screens.h"
#include "console/text_lines.h"

namespace zev {

/// All write to standard output.
void writeLines(const TextLines& lines);
void writeEmptyLines(std::size_t count);
void writePage(const TextLines& lines, const Page& page);

}  // namespace zev
