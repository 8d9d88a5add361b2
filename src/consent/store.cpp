#include "consent/store.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <utility>
#include <vector>

#include "consent/person.h"
#include "consent/scratch.h"
#include "consent/way_out.h"
#include "files/directory_at.h"
#include "files/paths.h"

namespace zev {

namespace {

constexpr mode_t directoryMode = 0755;

std::string failure(const std::string& what) { return what + ": " + std::strerror(errno); }

bool copyOwned(int from, int to, const std::string& name, std::size_t mostBytes, Owners& owners, std::string& problem) {
    std::string bytes;
    if (!readOwned(from, name, mostBytes, owners, bytes, problem)) return false;
    if (!createFileAt(to, name, bytes)) problem = failure(name);
    return problem.empty();
}

/// Copies the files of a record into an empty directory.
bool copyRecord(int from, int to, Owners owners, std::string& problem) {
    std::vector<std::string> names;
    const Descriptor copies = openOwnedDirectory(from, copiesName, owners, problem);
    if (!copies.isOpen()) return false;
    if (!listAt(copies.get(), names) || mkdirat(to, copiesName, directoryMode) != 0) {
        problem = failure(copiesName);
        return false;
    }
    const Descriptor made = openDirectoryAt(to, copiesName);
    for (const std::string& name : names) {
        if (!copyOwned(copies.get(), made.get(), name, mostOfCopy, owners, problem)) return false;
    }
    return copyOwned(from, to, acceptanceName, mostOfLines, owners, problem) &&
           copyOwned(from, to, sumsName, mostOfLines, owners, problem);
}

/// Waits a second at most for a lock, because whoever can read the file can hold it for ever.
void lockForAMoment(const Descriptor& file) {
    constexpr int attempts = 50;
    constexpr timespec pause{0, 20'000'000};
    for (int attempt = 0; attempt < attempts && flock(file.get(), LOCK_EX | LOCK_NB) != 0; ++attempt) {
        if (errno != EWOULDBLOCK) return;
        nanosleep(&pause, nullptr);
    }
}

}  // namespace

Store::Store(std::string path, DirectoryUse use, std::string product)
    : path_(std::move(path)), use_(use), product_(std::move(product)) {}

std::string Store::take(TrustedDirectory found) {
    directory_ = std::move(found.descriptor);
    if (isOpen() && fstat(descriptor(), &status_) != 0) return failure(path_);
    return std::move(found.problem);
}

std::string Store::open() { return take(openTrusted(path_, use_)); }

std::string Store::create() {
    std::string problem = take(makeTrusted(path_, use_));
    const bool isOthers = geteuid() != 0 && isOpen() && status_.st_uid != geteuid();
    if (!isOthers || use_ == DirectoryUse::master) return problem;
    return path_ + " belongs to user " + std::to_string(status_.st_uid) +
           ", so your records would not count there; name another directory with -s";
}

Owners Store::owners() const { return use_ == DirectoryUse::master ? Owners::anyOne() : Owners::ofState(status_); }

Descriptor Store::openProduct(std::string& flaw) const {
    Owners accepted = owners();
    return openOwnedDirectory(descriptor(), product_, accepted, flaw);
}

Descriptor Store::productDirectory() const {
    std::string ignored;
    return isOpen() ? openProduct(ignored) : Descriptor();
}

Record Store::find(const std::string& fingerprint) const {
    struct stat status {};
    if (!isOpen()) return {};
    if (fstatat(descriptor(), product_.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT) return {};
    Record record{RecordState::incomplete, {}, ""};
    const Descriptor product = openProduct(record.flaw);
    return product.isOpen() ? judgeRecord(product.get(), product_, fingerprint, owners()) : record;
}

std::optional<Fields> Store::newestOther(const std::string& fingerprint) const {
    std::optional<Fields> newest;
    std::vector<std::string> names;
    const Descriptor product = productDirectory();
    if (!product.isOpen() || !listAt(product.get(), names)) return newest;
    for (const std::string& name : names) {
        if (!isFingerprint(name) || name == fingerprint) continue;
        const auto fields = readAcceptance(product.get(), name, owners());
        if (fields && (!newest || fields->at("accepted") > newest->at("accepted"))) newest = fields;
    }
    return newest;
}

/// Gives the directory of a product the group and the mode of the master directory, so that other members can record in
/// it too. This is done if it is empty: it is new, or a run was killed before it did this.
bool Store::shareWithGroup(const Descriptor& product) const {
    constexpr mode_t modeBits = 07777;
    struct stat status {};
    std::vector<std::string> names;
    if (fstat(product.get(), &status) != 0) return false;
    if (status.st_uid != geteuid() || !listAt(product.get(), names) || !names.empty()) return true;
    return fchown(product.get(), static_cast<uid_t>(-1), status_.st_gid) == 0 &&
           fchmod(product.get(), status_.st_mode & modeBits) == 0;
}

std::string Store::openProductDirectory(Descriptor& product) const {
    const bool isMissing = faccessat(descriptor(), product_.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0;
    if (isMissing && !makeForRun(descriptor(), product_, directoryMode)) return failure(joinPath(path_, product_));
    std::string flaw;
    product = openProduct(flaw);
    if (!product.isOpen()) return joinPath(path_, flaw);
    const bool isShared = use_ == DirectoryUse::state || shareWithGroup(product);
    return isShared ? "" : failure(joinPath(path_, product_));
}

std::string Store::move(int scratch, const std::string& name, const std::string& fingerprint,
                        std::optional<Fields>& earlier) {
    // Another run that declined can remove a directory that it made just as this one enters it.
    constexpr int attempts = 5;
    std::string problem;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        Descriptor product;
        problem = openProductDirectory(product);
        if (!problem.empty()) continue;
        if (renameat(scratch, name.c_str(), product.get(), fingerprint.c_str()) == 0) {
            const bool isOnDisk = syncAt(product.get(), ".") && syncAt(descriptor(), ".") && syncMadeForRun();
            return isOnDisk ? "" : failure(path_ + " has the record, but a power failure can lose it");
        }
        problem = failure(joinPath(joinPath(path_, product_), fingerprint));
        if (errno == EEXIST || errno == ENOTEMPTY) {
            const Record there = judgeRecord(product.get(), product_, fingerprint, owners());
            if (there.state != RecordState::whole) return problem;
            earlier = there.fields;
            return "";
        }
        if (errno != ENOENT) break;
    }
    return problem;
}

std::string Store::publish(int scratch, const std::string& name, const std::string& fingerprint,
                           std::optional<Fields>& earlier) {
    return syncRecord(scratch, name) ? move(scratch, name, fingerprint, earlier) : failure(path_);
}

std::string Store::publishCopy(const Store& other, const std::string& fingerprint) {
    const Scratch scratch = openScratch(descriptor());
    if (!scratch.directory.isOpen()) return scratch.problem;
    std::string problem;
    Owners accepted = other.owners();
    const Descriptor record = openOwnedDirectory(other.productDirectory().get(), fingerprint, accepted, problem);
    if (mkdirat(scratch.directory.get(), recordDirectory, directoryMode) != 0) return failure(path_);
    const Descriptor made = openDirectoryAt(scratch.directory.get(), recordDirectory);
    if (!record.isOpen() || !copyRecord(record.get(), made.get(), accepted, problem)) return problem;
    std::optional<Fields> earlier;
    return publish(scratch.directory.get(), recordDirectory, fingerprint, earlier);
}

std::string Store::logVersion(const std::string& fingerprint, const std::string& version,
                              const std::string& who) const {
    constexpr mode_t mode = 0644;
    const std::string name = fingerprint + logSuffix;
    const Descriptor product = productDirectory();
    const Descriptor file(openat(product.get(), name.c_str(),
                                 O_RDWR | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, mode));
    if (!file.isOpen()) return failure(joinPath(product_, name));
    lockForAMoment(file);
    std::string bytes, problem;
    Owners accepted = owners();
    if (!readOwned(product.get(), name, mostOfLog, accepted, bytes, problem)) return problem;
    if (bytes.find("\t" + version + "\t") != std::string::npos) return "";
    // If a full disk has cut the last line, the new one begins on a line of its own.
    const std::string begin = bytes.empty() || bytes.ends_with('\n') ? "" : "\n";
    const std::string line = begin + currentTime() + "\t" + version + "\t" + who + "\n";
    return writeAll(file.get(), line) ? "" : failure(joinPath(product_, name));
}

bool syncRecord(int scratch, const std::string& name) {
    const Descriptor record = openDirectoryAt(scratch, name);
    const Descriptor copies = openDirectoryAt(record.get(), copiesName);
    std::vector<std::string> names;
    if (!record.isOpen() || !copies.isOpen() || !listAt(copies.get(), names)) return false;
    for (const std::string& copy : names) {
        if (!syncAt(copies.get(), copy)) return false;
    }
    return syncAt(record.get(), acceptanceName) && syncAt(record.get(), sumsName) && syncAt(record.get(), copiesName) &&
           syncAt(scratch, name);
}

}  // namespace zev
