#pragma once

#include <string>

namespace zev {

inline constexpr int defaultLanguageSet = 4;
inline constexpr int alternativeLanguageSet = 3;

/// The settings of the process, filled from the environment and the command line before anything else runs.
struct RunOptions {
    bool debugEnabled = false;
    bool echoInput = false;
    bool breakTextTrace = false;
    std::string commandLogPath;
    std::string dimensionsOutPath;
    std::string version = ZEV_VERSION;
    std::string licensePath;
    std::string statusPath;
    std::string masterPath;
    std::string preferredLanguage;
    bool hasMasterPath = false;
    bool acceptWithoutDialog = false;
    bool showExitCode = false;
    int languageSet = defaultLanguageSet;
};

inline RunOptions runOptions;

}  // namespace zev
