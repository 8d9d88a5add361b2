#include "consent/person.h"

#include <pwd.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "consent/legibility.h"
#include "files/output_file.h"

namespace zev {

namespace {

/// Reads /etc/passwd itself: in a static executable, getpwuid would load libraries of the system, which need not fit
/// those that it was built with.
std::string nameOf(uid_t user) {
    const File file(std::fopen("/etc/passwd", "re"));
    while (const passwd* entry = file ? fgetpwent(file.get()) : nullptr) {
        if (entry->pw_uid == user) return printableText(entry->pw_name);
    }
    return std::to_string(user);
}

std::string fromEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

/// Whether a directory belongs to the user. If it is not there, the nearest directory above it counts.
bool isOwn(const std::filesystem::path& directory) {
    struct stat status {};
    for (auto path = directory; path.has_relative_path(); path = path.parent_path()) {
        if (stat(path.c_str(), &status) == 0) return S_ISDIR(status.st_mode) && status.st_uid == geteuid();
    }
    return false;
}

}  // namespace

std::string effectivePerson() {
    const std::string name = nameOf(geteuid());
    const std::string caller = printableText(fromEnvironment("SUDO_USER"));
    return caller.empty() || caller == name ? name : name + " (sudo by " + caller + ")";
}

std::string loginPerson() {
    constexpr auto unset = static_cast<uid_t>(-1);
    uid_t user = unset;
    std::ifstream("/proc/self/loginuid") >> user;
    return user == unset || user == geteuid() ? "" : nameOf(user);
}

std::string hostName() {
    utsname names{};
    const std::string name = uname(&names) == 0 ? printableText(static_cast<const char*>(names.nodename)) : "";
    return name.empty() ? "-" : name;
}

std::string currentTime() {
    timespec now{};
    tm date{};
    if (clock_gettime(CLOCK_REALTIME, &now) != 0 || gmtime_r(&now.tv_sec, &date) == nullptr) return "";
    std::array<char, 32> text;
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &date)};
}

bool isTime(std::string_view text) {
    constexpr std::string_view pattern = "0000-00-00T00:00:00Z";
    return std::ranges::equal(text, pattern, [](char c, char p) { return p == '0' ? c >= '0' && c <= '9' : c == p; });
}

std::string defaultStateDirectory() {
    if (geteuid() == 0) return "/var/lib/zev";
    const std::string states = fromEnvironment("XDG_STATE_HOME");
    if (states.starts_with('/') && isOwn(states)) return states + "/zev";
    const std::string home = fromEnvironment("HOME");
    return home.starts_with('/') ? home + "/.local/state/zev" : "";
}

}  // namespace zev
