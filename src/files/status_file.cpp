#include "files/status_file.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>

#include "app/debug_trace.h"
#include "app/exit_code.h"
#include "app/run_context.h"
#include "files/output_file.h"
#include "files/paths.h"

namespace zev {

namespace {

constexpr const char* statusFileName = "status.dat";
constexpr char commentMark = '#';

std::string statusLine() { return "Status=" + std::to_string(exit_code::accepted); }

/// The local date and time, with the names of the POSIX locale; empty if the name of the time zone leaves no room.
std::string currentDate() {
    const std::time_t now = std::time(nullptr);
    std::array<char, 50> date;
    const auto size = std::strftime(date.data(), date.size(), "%a %b %d %H:%M:%S %Z %Y", std::localtime(&now));
    return {date.data(), size};
}

}  // namespace

std::string localStatusPath(const RunContext& context) { return joinPath(context.licenseCopyDir, statusFileName); }

std::string masterStatusPath(const RunContext& context) { return joinPath(context.masterPath, statusFileName); }

bool writeStatusFile(const RunContext&, const std::string& path) {
    const std::string content = commentMark + currentDate() + '\n' + statusLine() + '\n';
    ReplacedFile file(path);
    if (file.stream() == nullptr) {
        trace("Unable to open output file ", path);
        return false;
    }
    // Without a buffer the content is written by one call, so that no reader sees a part of it.
    std::setvbuf(file.stream(), nullptr, _IONBF, 0);
    std::fputs(content.c_str(), file.stream());
    return file.close();
}

bool checkStatusFile(const RunContext&, const std::string& path) {
    std::ifstream file(path);
    if (!file.is_open()) {
        trace("No status.dat found at ", path);
        return false;
    }
    std::array<char, 80> line;
    do {
        file.getline(line.data(), line.size());
    } while ((line[0] == '\0' || line[0] == commentMark) && file.good());

    const bool valid = line.data() == statusLine();
    trace(valid ? "Valid status.dat found at " : "Invalid status.dat found at ", path);
    return valid;
}

bool checkAccepted(const RunContext& context) {
    return checkStatusFile(context, localStatusPath(context)) ||
           (context.hasMasterPath != 0 && checkStatusFile(context, masterStatusPath(context)));
}

bool prepareStatusDirectory(const RunContext& context, int& exitCode) {
    if (!makeDirectoryPath(context.statusDir)) {
        exitCode = exit_code::noStatusDirectory;
        return false;
    }
    // Deliberately not in the directory of the status file, but one level above it.
    const std::string probePath = joinPath(context.statusDir, statusFileName);
    const Presence presence = presenceOf(probePath);
    if (presence == Presence::readable) return true;
    if (presence == Presence::unknown || !std::ofstream(probePath).is_open()) {
        exitCode = exit_code::statusDirectoryClosed;
        return false;
    }
    std::remove(probePath.c_str());
    return true;
}

}  // namespace zev
