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
constexpr const char* lockName = "lock";

std::string randomName() {
    constexpr std::string_view letters = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::array<unsigned char, 6> bytes{};
    if (getrandom(bytes.data(), bytes.size(), 0) < 0) return prefix + std::to_string(getpid());
    std::string name = prefix;
    for (const unsigned char byte : bytes) name += letters[byte % letters.size()];
    return name;
}

/// Whether no run holds the lock of a scratch directory whose age is known.
bool isLeftOver(int scratch, std::time_t age) {
    constexpr std::time_t minute = 60, day = 24 * 60 * minute;
    const Descriptor lock(openat(scratch, lockName, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!lock.isOpen()) return errno == ENOENT && age > minute;
    if (flock(lock.get(), LOCK_EX | LOCK_NB) == 0) return age > minute;
    return errno != EWOULDBLOCK && age > day;
}

}  // namespace

Scratch openScratch(int parent) {
    Scratch scratch;
    std::string name;
    do {
        name = randomName();
    } while (!makeScratch(parent, name) && errno == EEXIST);
    scratch.directory = openDirectoryAt(parent, name);
    if (scratch.directory.isOpen()) {
        scratch.lock =
            Descriptor(openat(scratch.directory.get(), lockName, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    }
    if (!scratch.lock.isOpen()) {
        scratch.problem = std::strerror(errno);
        scratch.directory = Descriptor();
        return scratch;
    }
    // Where there are no locks, those who look for leftovers wait for a day instead.
    flock(scratch.lock.get(), LOCK_EX | LOCK_NB);
    return scratch;
}

void clearLeftovers(int parent) {
    std::vector<std::string> names;
    if (!listAt(parent, names)) return;
    for (const std::string& name : names) {
        struct stat status {};
        if (!name.starts_with(prefix)) continue;
        const Descriptor scratch = openDirectoryAt(parent, name);
        if (!scratch.isOpen() || fstat(scratch.get(), &status) != 0 || status.st_uid != geteuid()) continue;
        if (isLeftOver(scratch.get(), std::time(nullptr) - status.st_mtime)) removeTreeAt(parent, name.c_str());
    }
}

}  // namespace zev
