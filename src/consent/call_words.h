#pragma once

#include <string>

namespace zev {

/// A path from the root, as it is written otherwise; empty where the working directory is gone.
[[nodiscard]] std::string absolutePath(const std::string& path);

/// A word that a shell takes for this text.
[[nodiscard]] std::string shellWord(const std::string& text);

/// The path under which zev-ask can be called, as it was called.
[[nodiscard]] std::string pathOfCommand(const char* calledAs);

/// Makes a locale the one of the process. One without a code set is taken for one in UTF-8: it would mean ASCII, to
/// which most of a text is lost.
void adoptTerminalLocale();

/// Why nobody can be asked, according to the environment; empty if somebody might be there.
[[nodiscard]] std::string whyNobody();

}  // namespace zev
