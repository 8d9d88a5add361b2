#include "files/atomic_directory.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "files/descriptor.h"
#include "files/directory_listing.h"

namespace zev {

namespace fs = std::filesystem;

namespace {

std::string failure(const fs::path& path, const char* what) {
    return path.string() + ": " + what + ": " + std::strerror(errno);
}

/// The directory itself: absolute, behind any link, and without a slash at its end.
fs::path placeOf(const std::string& path, std::error_code& error) {
    const fs::path whole = fs::absolute(path, error);
    const fs::path place = error ? whole : fs::weakly_canonical(whole, error);
    return place.has_filename() ? place : place.parent_path();
}

/// Where the new directory is made: hidden, beside the one that it replaces.
std::string leftoverPrefix(const fs::path& path) { return "." + path.filename().string() + ".zev-licenses."; }

/// Removes what killed runs left. Only the holder of the lock on the parent does, since no other run can be at work
/// then.
void clearLeftovers(const fs::path& path) {
    std::vector<std::string> names;
    std::string problem;
    if (!listDirectory(path.parent_path(), names, problem)) return;
    std::error_code error;
    for (const std::string& name : names) {
        if (name.starts_with(leftoverPrefix(path))) fs::remove_all(path.parent_path() / name, error);
    }
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::string writeFiles(const fs::path& directory, const DirectoryContent& content) {
    const Descriptor parent(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.value < 0) return failure(directory, "cannot be opened");
    for (const auto& [name, bytes] : content) {
        const Descriptor file(openat(parent.value, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (file.value < 0 || !writeAll(file.value, bytes) || fsync(file.value) != 0) {
            return failure(directory / name, "cannot be written");
        }
    }
    return fsync(parent.value) == 0 ? "" : failure(directory, "cannot be written");
}

/// Moves the new directory to its place; where there was an old one, that is found in the place of the new one then.
std::string moveIntoPlace(const fs::path& made, const fs::path& path) {
    if (std::rename(made.c_str(), path.c_str()) == 0) return "";
    if (errno == EEXIST || errno == ENOTEMPTY) {
        if (renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, path.c_str(), RENAME_EXCHANGE) == 0) return "";
        if (errno == EINVAL || errno == ENOSYS) {
            return path.string() + ": this file system cannot exchange directories in one step; remove it first";
        }
    }
    return failure(path, "cannot be replaced");
}

}  // namespace

std::string replaceDirectory(const std::string& path, const DirectoryContent& content) {
    std::error_code error;
    const fs::path place = placeOf(path, error);
    if (error) return path + ": " + error.message();
    const Descriptor parent(open(place.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.value < 0) return failure(place.parent_path(), "cannot be opened");
    // Where there are no locks on directories, leftovers stay, and runs at the same time are still safe.
    if (flock(parent.value, LOCK_EX) == 0) clearLeftovers(place);

    const fs::path made = place.parent_path() / (leftoverPrefix(place) + std::to_string(getpid()));
    if (!fs::create_directory(made, error)) {
        return made.string() + ": cannot be made: " + (error ? error.message() : "it is there already");
    }
    std::string problem = writeFiles(made, content);
    if (problem.empty()) problem = moveIntoPlace(made, place);
    fs::remove_all(made, error);
    if (problem.empty() && fsync(parent.value) != 0) problem = failure(place.parent_path(), "cannot be written");
    return problem;
}

}  // namespace zev
