#include "files/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "app/debug_trace.h"

namespace zev {

std::string joinPath(const std::string& directory, const std::string& name) {
    return directory + pathSeparator() + name;
}

Presence presenceOf(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor != -1) {
        close(descriptor);
        return Presence::readable;
    }
    switch (errno) {
        case EMFILE:
        case ENFILE:
        case ENOMEM:
        case EIO:
        case EINTR:
        case ESTALE: return Presence::unknown;
        default: return Presence::absent;
    }
}

bool fileExists(const std::string& path) { return presenceOf(path) != Presence::absent; }

bool makeDirectory(const std::string& path) {
    constexpr mode_t mode = 0750;
    // Deliberately traced in decimal, 488.
    trace("Calling mkdir(", path, ", ", mode, ");");
    const int result = mkdir(path.c_str(), mode);
    const int error = errno;
    if (result == 0 || error == EEXIST) return true;
    trace("Function mkdir returned ", result);
    trace("errno = ", error);
    return false;
}

bool makeDirectoryPath(const std::string& path) {
    for (auto slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1)) {
        if (!makeDirectory(path.substr(0, slash))) return false;
    }
    return makeDirectory(path);
}

}  // namespace zev
