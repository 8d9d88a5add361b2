// Compares zev's reading of a command line with that of a second parser: the settings, the printed version, the exit
// code, and, in the right place, the trace line of a refusal. Input: the words, each ended by a NUL. Slashes are
// removed, so that no trace file is created elsewhere.

#include "app/command_line.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "app/debug_trace.h"
#include "app/run_options.h"
#include "support.h"
#include "support/session.h"

namespace zev::fuzz {
namespace {

using Names = std::set<std::string>;

struct Outcome {
    RunOptions options;
    int exitCode = 0;  ///< 0 if the command line is correct
    std::string printed;
    std::string traced;
    std::string traceFile;  ///< empty for standard error
    Names files;            ///< created for the trace
};

std::string described(const Outcome& outcome) {
    const RunOptions& o = outcome.options;
    std::ostringstream text;
    text << "exit " << outcome.exitCode << " debug " << o.debugEnabled << " break " << o.breakTextTrace
         << " unattended " << o.acceptWithoutDialog << " show " << o.showExitCode << " echo " << o.echoInput << " set "
         << o.languageSet << " version " << o.version << "\nlog " << o.commandLogPath << "\ndim " << o.dimensionsOutPath
         << "\nl " << o.licensePath << "\ns " << o.statusPath << "\nm " << o.hasMasterPath << o.masterPath
         << "\nlanguage " << o.preferredLanguage << "\nprinted " << outcome.printed << "\ntraced " << outcome.traced;
    for (const std::string& name : outcome.files) text << "\nfile " << name;
    return text.str();
}

/// The second parser, which removes words from a list.
class SecondParser {
public:
    explicit SecondParser(std::vector<std::string> words) : words_(std::move(words)) {
        std::ranges::reverse(words_);
        while (!words_.empty() && outcome.exitCode == 0) parseOption(take());
        if (outcome.exitCode == 0 && (options_.licensePath.empty() || options_.statusPath.empty())) {
            refuse(17, "Options -l and -s are mandatory");
        }
    }

    Outcome outcome;

private:
    std::string take() {
        std::string word = words_.back();
        words_.pop_back();
        return word;
    }

    void refuse(int exitCode, const std::string& reason) {
        outcome.exitCode = exitCode;
        if (options_.debugEnabled) outcome.traced = "DEBUG: " + reason + "\n";
    }

    void parseOption(const std::string& name) {
        static const std::map<std::string, bool RunOptions::*> flags{{"-show_exit_code", &RunOptions::showExitCode},
                                                                     {"-debug", &RunOptions::debugEnabled},
                                                                     {"-debugBreakText", &RunOptions::breakTextTrace}};
        static const std::map<std::string, std::string RunOptions::*> texts{
            {"-l", &RunOptions::licensePath},         {"-s", &RunOptions::statusPath},
            {"-m", &RunOptions::masterPath},          {"-setlang", &RunOptions::preferredLanguage},
            {"-cmdlog", &RunOptions::commandLogPath}, {"-dimout", &RunOptions::dimensionsOutPath}};
        if (name == "-version") {
            outcome.printed += options_.version + "\n";
        } else if (flags.contains(name)) {
            options_.*flags.at(name) = true;
            if (name.starts_with("-debug") && !words_.empty() && !words_.back().starts_with("-")) openTrace(take());
        } else if (!texts.contains(name) && name != "-t" && name != "-langset") {
            refuse(18, "Unknown option : " + name);
        } else if (words_.empty()) {
            refuse(18, "Option " + name + " requires " + (name.size() == 2 && name != "-t" ? "a path" : "an") +
                           " argument");
        } else if (name == "-t") {
            options_.acceptWithoutDialog |= words_.back() == "5";
            if (take() != "5") refuse(18, "Invalid argument for -t option");
        } else if (name == "-langset") {
            options_.languageSet = static_cast<int>(std::strtol(take().c_str(), nullptr, 10));
            if (options_.languageSet != 3) refuse(18, "Invalid -langset argument");
        } else {
            options_.*texts.at(name) = take();
            options_.hasMasterPath |= name == "-m";
        }
    }

    void openTrace(const std::string& name) {
        const bool opens = !name.empty() && name.size() <= 255 && name != "." && name != "..";
        outcome.traceFile = opens ? name : "";
        if (opens) outcome.files.insert(name);
    }

    RunOptions& options_ = outcome.options;
    std::vector<std::string> words_;
};

/// Makes a directory the working directory while it lives.
class Stay {
public:
    explicit Stay(const std::string& path) : former_(std::filesystem::current_path()) {
        std::filesystem::current_path(path);
    }
    ~Stay() { std::filesystem::current_path(former_); }
    Stay(const Stay&) = delete;
    Stay& operator=(const Stay&) = delete;

private:
    std::filesystem::path former_;
};

/// What zev reads from the words. The trace files are created in `directory`, which is empty before and after.
Outcome parse(const std::string& directory, std::vector<std::string> words, const std::string& traceFile) {
    const Stay stay(directory);
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());

    std::stringbuf out, err;
    const Redirection printed(std::cout, out), traced(std::cerr, err);
    Outcome outcome;
    runOptions = {};
    const bool valid = parseCommandLine(outcome.exitCode, static_cast<int>(argv.size()), argv.data());
    openDebugFile("");
    require(valid == (outcome.exitCode == 0), "a code goes with a refusal");

    outcome.options = runOptions;
    outcome.printed = out.str();
    outcome.traced = err.str();
    if (!traceFile.empty()) {
        std::ifstream file(traceFile);
        outcome.traced.append(std::istreambuf_iterator<char>(file), {});
    }
    for (const auto& entry : std::filesystem::directory_iterator(".")) outcome.files.insert(entry.path().filename());
    for (const std::string& name : outcome.files) std::filesystem::remove(name);
    return outcome;
}

void checkParsing(Input input) {
    static const test::Sandbox sandbox;
    std::vector<std::string> words;
    while (!input.rest().empty()) {
        words.push_back(input.upTo('\0'));
        std::ranges::replace(words.back(), '/', '_');
    }
    std::filesystem::create_directory(sandbox.path("traces"));
    const Outcome expected = SecondParser(words).outcome;
    words.insert(words.begin(), "zev");
    requireEqual(described(parse(sandbox.path("traces"), words, expected.traceFile)), described(expected),
                 "read as by the second parser");
}

}  // namespace
}  // namespace zev::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    zev::fuzz::checkParsing({data, size});
    return 0;
}
