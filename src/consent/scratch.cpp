#include "consent/scratch.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>

#include "consent/way_out.h"
#include "files/directory_at.h"

namespace zev {

namespace {

constexpr const char* prefix = ".zev-ask-";

std::string randomName() {
    constexpr std::string_view letters = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::array<unsigned char, 6> bytes{};
    if (getrandom(bytes.data(), bytes.size(), 0) < 0) return prefix + std::to_string(getpid());
    std::string name = prefix;
    for (const unsigned char byte : bytes) name += letters[byte % letters.size()];
    return name;
}

/// Whether a directory is a scratch directory of a run of this user that has ended. If its lock is missing, the run was
/// killed before it made the lock, and the directory must be empty.
bool isLeftOver(int scratch) {
    constexpr std::time_t minute = 60, day = minute * 60 * 24;
    constexpr mode_t modeBits = 0777, mode = 0700;  // without the setgid bit, which comes from a master directory
    struct stat status {};
    if (fstat(scratch, &status) != 0 || status.st_uid != geteuid() || (status.st_mode & modeBits) != mode) return false;
    const std::time_t age = std::time(nullptr) - status.st_mtime;
    const Descriptor lock(openat(scratch, lockName, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    std::vector<std::string> names;
    if (!lock.isOpen()) return errno == ENOENT && age > minute && listAt(scratch, names) && names.empty();
    if (flock(lock.get(), LOCK_EX | LOCK_NB) == 0) return age > minute;
    return errno != EWOULDBLOCK && age > day;
}

}  // namespace

Scratch openScratch(int parent) {
    Scratch scratch;
    std::string name;
    do {
        name = randomName();
        scratch.directory = makeScratch(parent, name);
    } while (!scratch.directory.isOpen() && errno == EEXIST);
    if (scratch.directory.isOpen()) {
        scratch.lock =
            Descriptor(openat(scratch.directory.get(), lockName, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    }
    if (!scratch.lock.isOpen()) {
        scratch.problem = std::strerror(errno);
        scratch.directory = Descriptor();
        return scratch;
    }
    // If the file system has no locks, clearLeftovers waits for a day instead.
    flock(scratch.lock.get(), LOCK_EX | LOCK_NB);
    return scratch;
}

void clearLeftovers(int parent) {
    std::vector<std::string> names;
    if (!listAt(parent, names)) return;
    for (const std::string& name : names) {
        if (!name.starts_with(prefix)) continue;
        const Descriptor scratch = openDirectoryAt(parent, name);
        if (scratch.isOpen() && isLeftOver(scratch.get())) removeScratch(parent, name.c_str(), scratch.get());
    }
}

}  // namespace zev
