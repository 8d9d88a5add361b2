#include "files/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "files/directory_at.h"

namespace zev {

namespace {

/// Far more than any agreement needs, and well below what zev itself can load.
constexpr std::size_t mostMebibytes = 256;
constexpr std::size_t mostBytes = mostMebibytes << 20;

FileContent problem(const std::string& text) { return {"", text}; }

FileContent problemOf(int error) {
    return problem(error == ENOENT ? missingFile : std::string("cannot be read: ") + std::strerror(error));
}

}  // namespace

FileContent readRegularFile(const std::string& path) {
    struct stat status {};
    // Checked before the file is opened, because opening a pipe or a device can block or have effects.
    if (stat(path.c_str(), &status) != 0) return problemOf(errno);
    if (!S_ISREG(status.st_mode)) return problem("not a regular file");
    const auto tooLarge = [] {
        return problem("larger than " + std::to_string(mostMebibytes) + " MiB: no licence text");
    };
    if (static_cast<std::size_t>(status.st_size) > mostBytes) return tooLarge();
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return problemOf(errno);

    FileContent content;
    std::array<char, 1 << 16> block;
    for (;;) {
        const ssize_t size = read(file.get(), block.data(), block.size());
        if (size == 0) return content;
        if (size < 0 && errno != EINTR) return problemOf(errno);
        if (size > 0) content.bytes.append(block.data(), static_cast<std::size_t>(size));
        if (content.bytes.size() > mostBytes) return tooLarge();
    }
}

}  // namespace zev
