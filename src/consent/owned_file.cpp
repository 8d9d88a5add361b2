#include "consent/owned_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "consent/trusted_path.h"
#include "files/directory_at.h"
#include "files/license_fingerprint.h"

namespace zev {

namespace {

/// Hands the bytes of a file to `consume`. False on a read error, or if the file has grown beyond `mostBytes`.
template <class Consume>
bool forEachPiece(const Descriptor& file, std::size_t mostBytes, Consume consume) {
    std::array<char, 1 << 16> piece;
    for (std::size_t all = 0; all <= mostBytes;) {
        const ssize_t size = read(file.get(), piece.data(), piece.size());
        if (size == 0) return true;
        if (size < 0 && errno != EINTR) return false;
        if (size < 0) continue;
        all += static_cast<std::size_t>(size);
        consume(std::string_view(piece.data(), static_cast<std::size_t>(size)));
    }
    return false;
}

template <class Consume>
bool readPieces(int directory, const std::string& name, std::size_t mostBytes, Owners& owners, std::string& flaw,
                Consume consume) {
    const Descriptor file = openOwnedFile(directory, name, mostBytes, owners, flaw);
    if (!file.isOpen()) return false;
    if (forEachPiece(file, mostBytes, consume)) return true;
    flaw = name + " cannot be read to its end";
    return false;
}

}  // namespace

bool Owners::accept(const struct stat& file) {
    const bool isOfRoot = !isAnyOne_ && isRoots(*owner_);
    if ((file.st_mode & S_IWOTH) != 0 || (isOfRoot && isOpenToGroup(file))) return false;
    if (isAnyOne_ && !owner_) owner_ = file.st_uid;
    return file.st_uid == owner_ || (!isAnyOne_ && file.st_uid == 0);
}

Descriptor openOwnedDirectory(int parent, const std::string& name, Owners& owners, std::string& flaw) {
    struct stat status {};
    Descriptor directory = openDirectoryAt(parent, name);
    if (!directory.isOpen() || fstat(directory.get(), &status) != 0) {
        flaw = name + " is not a directory that can be read";
    } else if (!owners.accept(status)) {
        flaw = name + " belongs to a user whose records do not count, or others can write to it";
    } else {
        return directory;
    }
    return Descriptor();
}

Descriptor openOwnedFile(int directory, const std::string& name, std::size_t mostBytes, Owners& owners,
                         std::string& flaw) {
    struct stat status {};
    Descriptor file(openat(directory, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) {
        flaw = name + (errno == ENOENT ? " is missing" : std::string(" cannot be read: ") + std::strerror(errno));
    } else if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        flaw = name + " is not a regular file";
    } else if (!owners.accept(status)) {
        flaw = name + " belongs to a user whose records do not count, or others can write to it";
    } else if (static_cast<std::size_t>(status.st_size) > mostBytes) {
        flaw = name + " is too large";
    } else {
        return file;
    }
    return Descriptor();
}

bool readOwned(int directory, const std::string& name, std::size_t mostBytes, Owners& owners, std::string& bytes,
               std::string& flaw) {
    return readPieces(directory, name, mostBytes, owners, flaw, [&](std::string_view piece) { bytes += piece; });
}

bool hashOwned(int directory, const std::string& name, Owners& owners, std::string& sum, std::string& flaw) {
    Sha256 hash;
    if (!readPieces(directory, name, mostOfCopy, owners, flaw, [&](std::string_view piece) { hash.add(piece); })) {
        return false;
    }
    sum = hash.digits();
    return true;
}

}  // namespace zev
