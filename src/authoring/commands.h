#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/run_options.h"
#include "authoring/finding.h"
#include "console/terminal_geometry.h"

namespace zev {

/// The exit statuses of zev-licenses.
namespace authoring_status {
inline constexpr int clean = 0;
inline constexpr int findings = 1;
inline constexpr int cannotWork = 2;
}  // namespace authoring_status

/// The name of a directory in a line of results: printable, and without the slashes at its end.
[[nodiscard]] std::string nameOfDirectory(std::string directory);

/// Writes to standard error why the command cannot do its work. Returns the exit status for that.
[[nodiscard]] int cannotWork(const std::string& reason);

struct BuildCommand {
    std::string sources, output, standIn;
    std::string language;  ///< the language of `sources`, if they are one text
    int languageSet = defaultLanguageSet;
    std::vector<Acceptance> accepted;
    bool json = false, strict = false;
};

struct CheckCommand {
    std::string directory, standIn;
    int languageSet = defaultLanguageSet;
    std::vector<Acceptance> accepted;
    bool pages = false, json = false, strict = false;
};

struct PreviewCommand {
    std::string directory, codePage, html;
    std::vector<std::string> languages;  ///< all of the set if empty
    int languageSet = defaultLanguageSet;
    int32_t width = usualWidth;  ///< columns
    int32_t pageHeight = 0;      ///< lines of the screen; 0 shows the text without pages and prompts
};

/// Each runs a command and returns the exit status. Results go to standard output, messages to standard error.
[[nodiscard]] int runBuild(const BuildCommand& command);
[[nodiscard]] int runCheck(const CheckCommand& command);
[[nodiscard]] int runPreview(const PreviewCommand& command);

}  // namespace zev
