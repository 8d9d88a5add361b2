#include "files/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace zev {

namespace {

File openStream(const std::string& path, int flags, mode_t mode) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | flags, mode);
    if (descriptor == -1) return nullptr;
    File file(fdopen(descriptor, "w"));
    if (!file) ::close(descriptor);
    return file;
}

/// Truncates the file at its position; a device or a pipe has none and is left alone.
bool cut(int descriptor) {
    const off_t size = lseek(descriptor, 0, SEEK_CUR);
    if (size == -1) return errno == ESPIPE;
    return ftruncate(descriptor, size) == 0 || errno == EINVAL;
}

}  // namespace

ReplacedFile::ReplacedFile(const std::string& path) : file_(openStream(path, 0, 0666)) {}

ReplacedFile::~ReplacedFile() { close(); }

bool ReplacedFile::flush() { return std::ferror(stream()) == 0 && std::fflush(stream()) == 0; }

bool ReplacedFile::close() {
    if (!file_) return false;
    const bool flushed = flush();
    const int error = errno;
    const bool isCut = cut(fileno(stream()));
    const bool closed = std::fclose(file_.release()) == 0;
    if (!flushed) errno = error;
    return flushed && isCut && closed;
}

File createPrivateFile(const std::string& path) {
    unlink(path.c_str());
    return openStream(path, O_EXCL | O_NOFOLLOW, 0600);
}

}  // namespace zev
