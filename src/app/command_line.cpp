#include "app/command_line.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "app/debug_trace.h"
#include "app/exit_code.h"
#include "app/run_options.h"

namespace zev {

namespace {

enum class Takes { nothing, path, argument, optionalTraceFile };

struct Option {
    std::string_view name;
    Takes takes;
    /// Puts the argument, null if there is none, into effect. Null on success, otherwise the trace line of the refusal.
    const char* (*apply)(const char* argument);
};

template <bool RunOptions::*flag>
const char* setFlag(const char*) {
    runOptions.*flag = true;
    return nullptr;
}

template <std::string RunOptions::*text>
const char* setText(const char* argument) {
    runOptions.*text = argument;
    return nullptr;
}

const char* printVersion(const char*) {
    std::cout << runOptions.version << std::endl;
    return nullptr;
}

const char* setMasterPath(const char* argument) {
    runOptions.hasMasterPath = true;
    return setText<&RunOptions::masterPath>(argument);
}

const char* setUnattended(const char* argument) {
    if (argument != std::string_view("5")) return "Invalid argument for -t option";
    return setFlag<&RunOptions::acceptWithoutDialog>(argument);
}

/// The default set is refused like any other: the option exists only to select the alternative one.
const char* setLanguageSet(const char* argument) {
    runOptions.languageSet = std::atoi(argument);
    return runOptions.languageSet == alternativeLanguageSet ? nullptr : "Invalid -langset argument";
}

constexpr std::array options{
    Option{"-version", Takes::nothing, printVersion},
    Option{"-l", Takes::path, setText<&RunOptions::licensePath>},
    Option{"-s", Takes::path, setText<&RunOptions::statusPath>},
    Option{"-m", Takes::path, setMasterPath},
    Option{"-t", Takes::argument, setUnattended},
    Option{"-setlang", Takes::argument, setText<&RunOptions::preferredLanguage>},
    Option{"-show_exit_code", Takes::nothing, setFlag<&RunOptions::showExitCode>},
    Option{"-debug", Takes::optionalTraceFile, setFlag<&RunOptions::debugEnabled>},
    Option{"-debugBreakText", Takes::optionalTraceFile, setFlag<&RunOptions::breakTextTrace>},
    Option{"-cmdlog", Takes::argument, setText<&RunOptions::commandLogPath>},
    Option{"-dimout", Takes::argument, setText<&RunOptions::dimensionsOutPath>},
    Option{"-langset", Takes::argument, setLanguageSet},
};

/// Reads the option at `argv[index]` and leaves `index` on the last argument that belongs to it.
bool parseOption(int argc, char** argv, int& index) {
    const auto* option = std::ranges::find(options, std::string_view(argv[index]), &Option::name);
    if (option == options.end()) {
        trace("Unknown option : ", argv[index]);
        return false;
    }

    const char* next = index + 1 < argc ? argv[index + 1] : nullptr;
    const char* refusal = nullptr;
    switch (option->takes) {
        case Takes::nothing: refusal = option->apply(nullptr); break;
        case Takes::optionalTraceFile:
            refusal = option->apply(nullptr);
            if (next == nullptr || next[0] == '-') break;
            openDebugFile(next);
            ++index;
            break;
        case Takes::path:
        case Takes::argument:
            if (next == nullptr) {
                const char* wanted = option->takes == Takes::path ? "a path argument" : "an argument";
                trace("Option ", option->name, " requires ", wanted);
                return false;
            }
            refusal = option->apply(next);
            ++index;
            break;
    }
    if (refusal != nullptr) trace(refusal);
    return refusal == nullptr;
}

}  // namespace

bool parseCommandLine(int& exitCode, int argc, char** argv) {
    for (int index = 1; index < argc; ++index) {
        if (!parseOption(argc, argv, index)) {
            exitCode = exit_code::badOption;
            return false;
        }
    }
    if (runOptions.licensePath.empty() || runOptions.statusPath.empty()) {
        trace("Options -l and -s are mandatory");
        exitCode = exit_code::missingOption;
        return false;
    }
    return true;
}

void printUsage(const std::string& programName) {
    trace(programName, " version ", runOptions.version);
    trace("Usage: ", programName, " {<option>}");
    trace("Required options:");
    trace("  -l <la_path>        = Specify location of input license files");
    trace("  -s <status_path>    = Specify location of target status file");
    trace("Optional options:");
    trace("  -m <master_path>    = Specify master path for group install");
    trace("  -show_exit_code     = Show exit code on program termination");
    trace("  -t <status>         = ");
    trace("  -setlang <language> = Specify a preferred language");
    trace("  -version            = Show version information");
    trace("  -debug {<filename>} = Output debug messages to stderr or specified filename");
    trace("  -langset ", alternativeLanguageSet,
          "          = Specify alt set of supported languages (DFLT=", defaultLanguageSet, ")");
}

}  // namespace zev
