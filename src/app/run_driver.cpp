#include "app/run_driver.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <span>
#include <utility>

#include "app/command_line.h"
#include "app/debug_trace.h"
#include "app/exit_code.h"
#include "app/run_context.h"
#include "app/run_options.h"
#include "app/start_process.h"
#include "console/dialog_run.h"
#include "console/terminal_geometry.h"
#include "files/license_copies.h"
#include "files/license_text_set.h"
#include "files/status_file.h"
#include "lang/environment_locale.h"
#include "lang/locale_choice.h"

namespace zev {

namespace {

/// A page reaches the terminal in one piece; whoever reads or traces flushes first.
void bufferOutput() {
    static char buffer[1 << 16];
    std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
}

void traceFromEnvironment() {
    const char* fileName = std::getenv("ZEV_DEBUG");
    if (fileName == nullptr) return;
    openDebugFile(fileName);
    runOptions.debugEnabled = true;
}

/// Answers that do not come from a terminal are echoed. The two bits are tested one by one, so a block device, whose
/// type includes the bit of character devices, counts as a terminal.
bool echoesInput() {
    struct stat input {};
    if (fstat(STDIN_FILENO, &input) != 0) return true;
    return (input.st_mode & S_IFREG) != 0 || (input.st_mode & S_IFCHR) == 0;
}

struct Invocation {
    std::span<char* const> words;
};

std::ostream& operator<<(std::ostream& out, const Invocation& invocation) {
    for (const char* word : invocation.words) out << " " << word;
    return out;
}

void adoptPreferredLanguage(RunContext& context) {
    if (runOptions.preferredLanguage.empty()) return;
    static_cast<void>(setLocale(context, localeNamed(runOptions.preferredLanguage)));
}

int recordAcceptance(const RunContext& context) {
    return writeStatusFiles(context) ? exit_code::accepted : exit_code::notRecorded;
}

int askUser(RunContext& context) {
    std::ofstream commandLog;
    if (!runOptions.commandLogPath.empty()) commandLog.open(runOptions.commandLogPath);
    const ScreenSize size = measureTerminal();
    return runLicenseDialog(context, size, std::move(commandLog));
}

/// The run of a valid command line.
int runWithOptions() {
    RunContext context = createRunContext(runOptions.licensePath, runOptions.statusPath, runOptions.languageSet);
    if (runOptions.hasMasterPath) {
        context.hasMasterPath = 1;
        context.masterPath = runOptions.masterPath;
    }
    adoptPreferredLanguage(context);
    if (int exitCode = 0; !prepareStatusDirectory(context, exitCode)) return exitCode;

    if (runOptions.acceptWithoutDialog || checkAccepted(context)) return recordAcceptance(context);
    if (!checkAllLicenseFiles(context)) return exit_code::noLicense;
    const int answer = askUser(context);
    return answer == exit_code::accepted ? recordAcceptance(context) : answer;
}

void reportExit(int exitCode) {
    const bool isAnswer = exitCode == exit_code::declined || exitCode == exit_code::accepted;
    if (!isAnswer || runOptions.showExitCode) std::cout << "Exited with: " << exitCode << '\n';
    std::cout.flush();
}

}  // namespace

int runDriver(int argc, char** argv) {
    startProcess();
    bufferOutput();
    traceFromEnvironment();
    runOptions.echoInput = echoesInput();

    int exitCode = 0;
    if (parseCommandLine(exitCode, argc, argv)) {
        trace("ZEV version ", runOptions.version, " started");
        trace("Tool invoked as:", Invocation{{argv, static_cast<std::size_t>(argc)}});
        exitCode = runWithOptions();
    } else {
        printUsage(argc > 0 ? argv[0] : "");
    }
    reportExit(exitCode);
    return exitCode;
}

}  // namespace zev
