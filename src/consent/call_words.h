#pragma once

#include <string>

namespace zev {

/// The path made absolute, and otherwise as it was written; empty if the working directory was removed.
[[nodiscard]] std::string absolutePath(const std::string& path);

/// A path, quoted as a shell needs it. For a character that is not printable it has a "?" that is not quoted, which the
/// shell replaces by that character.
[[nodiscard]] std::string shellWord(const std::string& text);

/// The path under which zev-ask can be called, as it was called.
[[nodiscard]] std::string pathOfCommand(const char* calledAs);

/// Makes the locale of the environment that of the process. If it names no code set, the code page is UTF-8: ASCII,
/// which zev would take, cannot show most texts.
void adoptTerminalLocale();

/// Why nobody can be asked, according to the environment; empty if somebody might be there.
[[nodiscard]] std::string whyNobody();

}  // namespace zev
