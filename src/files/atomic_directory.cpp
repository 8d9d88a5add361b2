#include "files/atomic_directory.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>

#include "files/directory_at.h"

namespace zev {

namespace fs = std::filesystem;

namespace {

std::string failure(const fs::path& path, const char* what) {
    return path.string() + ": " + what + ": " + std::strerror(errno);
}

/// The directory itself: its absolute path, with all links resolved and no slash at its end.
fs::path placeOf(const std::string& path, std::error_code& error) {
    const fs::path whole = fs::absolute(path, error);
    const fs::path place = error ? whole : fs::weakly_canonical(whole, error);
    return place.has_filename() ? place : place.parent_path();
}

/// Where the new directory is made: hidden, beside the one that it replaces.
std::string leftoverPrefix(const fs::path& path) { return "." + path.filename().string() + ".zev-licenses."; }

/// Waits for a lock on an open directory, but not for ever, because whoever can read a directory can hold it. False if
/// it is not free in time, or if the file system has no locks.
bool lock(int directory, std::chrono::milliseconds longest) {
    constexpr std::chrono::milliseconds step{50};
    const auto end = std::chrono::steady_clock::now() + longest;
    while (flock(directory, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(step);
    }
    return true;
}

/// Removes what killed runs left, whose locks are gone.
void clearLeftovers(const fs::path& path) {
    std::vector<std::string> names;
    std::string problem;
    if (!listDirectory(path.parent_path(), names, problem)) return;
    std::error_code error;
    for (const std::string& name : names) {
        if (!name.starts_with(leftoverPrefix(path))) continue;
        const fs::path leftover = path.parent_path() / name;
        const Descriptor directory(open(leftover.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (directory.isOpen() && lock(directory.get(), {})) fs::remove_all(leftover, error);
    }
}

/// Makes a directory that no other run has, with another name if a killed run left one of its name. Empty if it cannot
/// be made; errno has the cause.
fs::path makeBeside(const fs::path& path) {
    const fs::path prefix = path.parent_path() / (leftoverPrefix(path) + std::to_string(getpid()));
    constexpr int mostLeftovers = 100;
    for (int i = 0; i < mostLeftovers; ++i) {
        fs::path made = prefix;
        if (i > 0) made += "." + std::to_string(i);
        if (mkdir(made.c_str(), 0777) == 0) return made;
        if (errno != EEXIST) break;
    }
    return {};
}

std::string writeFiles(int parent, const fs::path& directory, const DirectoryContent& content) {
    for (const auto& [name, bytes] : content) {
        const Descriptor file(openat(parent, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (!file.isOpen() || !writeAll(file.get(), bytes) || fsync(file.get()) != 0) {
            return failure(directory / name, "cannot be written");
        }
    }
    return "";
}

/// Fills a new directory. It gets the group and the mode of the one that it is to replace, so that the same people can
/// use it; its files follow the group if the mode says so.
std::string fill(int made, const fs::path& directory, const fs::path& replaced, const DirectoryContent& content) {
    struct stat own {};
    struct stat old {};
    const bool replaces = stat(replaced.c_str(), &old) == 0;
    if (fstat(made, &own) != 0 || own.st_nlink == 0) return failure(directory, "is gone");
    if (replaces && own.st_gid != old.st_gid && fchown(made, static_cast<uid_t>(-1), old.st_gid) != 0) {
        return failure(replaced, "its group cannot be kept");
    }
    constexpr mode_t permissions = 07777;
    const mode_t mode = (replaces ? old.st_mode : own.st_mode) & permissions;
    if (fchmod(made, mode | S_IRWXU) != 0) return failure(directory, "cannot be written");
    std::string problem = writeFiles(made, directory, content);
    if (problem.empty() && (fchmod(made, mode) != 0 || fsync(made) != 0)) {
        problem = failure(directory, "cannot be written");
    }
    return problem;
}

/// Moves the new directory to its place. If there was an old one, it is then in the place of the new one.
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
    if (!parent.isOpen()) return failure(place.parent_path(), "cannot be opened");
    constexpr std::chrono::seconds longestWait{10};
    if (lock(parent.get(), longestWait)) clearLeftovers(place);

    const fs::path made = makeBeside(place);
    if (made.empty()) return failure(place.parent_path() / leftoverPrefix(place), "cannot be made");
    const Descriptor directory(open(made.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory.isOpen()) return failure(made, "cannot be opened");
    // The lock shows other runs that this directory is in use. If one was faster, it removes the directory.
    if (!lock(directory.get(), {}) && errno == EWOULDBLOCK) return made.string() + ": taken away by another run";
    std::string problem = fill(directory.get(), made, place, content);
    if (problem.empty()) problem = moveIntoPlace(made, place);
    fs::permissions(made, fs::perms::owner_all, fs::perm_options::add, error);  // the old one may have been read-only
    fs::remove_all(made, error);
    if (problem.empty() && fsync(parent.get()) != 0) problem = failure(place.parent_path(), "cannot be written");
    return problem;
}

}  // namespace zev
