#pragma once

#include <iosfwd>
#include <string>

#include "authoring/commands.h"
#include "authoring/shown_language.h"

namespace zev {

/// Writes what zev shows of a language, in UTF-8 and as wide as the preview asks, under a line of figures. Each line
/// stands behind five columns, which mark it with ">" where it is too wide for the terminal. With the height of a
/// screen, pages and prompts follow each other as they do for someone who presses Enter until the end.
void writePreview(std::ostream& out, const std::string& code, const ShownLanguage& language, const Screens& screens,
                  const PreviewCommand& preview);

}  // namespace zev
