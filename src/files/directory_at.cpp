#include "files/directory_at.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>

namespace zev {

namespace {

constexpr int openDirectory = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

bool isItselfOrParent(std::string_view name) { return name == "." || name == ".."; }

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

/// What the kernel writes for an entry; readdir would allocate memory.
struct RawEntry {
    ino64_t inode;
    off64_t offset;
    unsigned short size;
    unsigned char type;
    char name[1];
};

/// Removes what it can in one pass over a directory. Returns whether anything is gone.
// NOLINTNEXTLINE(misc-no-recursion): as deep as the tree
bool removeSomeIn(int directory) noexcept {
    alignas(RawEntry) char entries[4096];
    bool hasRemoved = false;
    lseek(directory, 0, SEEK_SET);
    for (long size; (size = syscall(SYS_getdents64, directory, entries, sizeof entries)) > 0;) {
        for (long at = 0; at < size;) {
            const auto* entry = reinterpret_cast<const RawEntry*>(entries + at);
            at += entry->size;
            const char* name = static_cast<const char*>(entry->name);
            if (isItselfOrParent(name)) continue;
            removeTreeAt(directory, name);
            struct stat left {};
            const bool isGone = fstatat(directory, name, &left, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
            hasRemoved = hasRemoved || isGone;
        }
    }
    return hasRemoved;
}

}  // namespace

Descriptor openDirectoryAt(int parent, const std::string& name) {
    return Descriptor(openat(parent, name.c_str(), openDirectory));
}

bool listAt(int directory, std::vector<std::string>& names) {
    const int own = openat(directory, ".", openDirectory);
    const std::unique_ptr<DIR, CloseDirectory> entries(own != -1 ? fdopendir(own) : nullptr);
    if (!entries) {
        const Descriptor unused(own);
        return false;
    }
    const auto next = [&entries] {
        errno = 0;  // allocating a name can have set it
        return readdir(entries.get());
    };
    while (const dirent* entry = next()) {
        const std::string name = static_cast<const char*>(entry->d_name);
        if (!isItselfOrParent(name)) names.push_back(name);
    }
    const bool isComplete = errno == 0;
    std::ranges::sort(names);
    return isComplete;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool createFileAt(int directory, const std::string& name, std::string_view bytes) {
    constexpr mode_t mode = 0644;
    const Descriptor file(openat(directory, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    return file.isOpen() && fchmod(file.get(), mode) == 0 && writeAll(file.get(), bytes);
}

bool syncAt(int parent, const std::string& name) {
    const Descriptor file(openat(parent, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return false;
    return fsync(file.get()) == 0 || errno == EINVAL;
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as the tree
void removeTreeAt(int parent, const char* name) noexcept {
    if (unlinkat(parent, name, 0) == 0) return;
    const int directory = openat(parent, name, openDirectory);
    if (directory == -1) return;
    while (removeSomeIn(directory)) {
    }
    removeDirectoryAt(parent, name, directory);
    close(directory);
}

void removeDirectoryAt(int parent, const char* name, int directory) noexcept {
    struct stat own {};
    struct stat found {};
    if (fstat(directory, &own) != 0 || fstatat(parent, name, &found, AT_SYMLINK_NOFOLLOW) != 0) return;
    if (own.st_dev == found.st_dev && own.st_ino == found.st_ino) unlinkat(parent, name, AT_REMOVEDIR);
}

bool listDirectory(const std::string& directory, std::vector<std::string>& names, std::string& problem) {
    namespace fs = std::filesystem;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
        names.push_back(entry->path().filename());
    }
    if (error) problem = directory + ": " + error.message();
    std::ranges::sort(names);
    return !error;
}

}  // namespace zev
