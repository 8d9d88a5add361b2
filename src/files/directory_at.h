#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Files that are reached through the descriptor of their directory, even if its path changes meanwhile. A symbolic
/// link is never followed. On failure errno has the cause. listDirectory alone takes a path.
namespace zev {

/// Owns a file descriptor and closes it at its end, without a change of errno; a negative one stands for none.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }

    [[nodiscard]] int get() const { return number_; }
    [[nodiscard]] bool isOpen() const { return number_ >= 0; }

private:
    void reset() {
        const int cause = errno;
        if (isOpen()) close(number_);
        errno = cause;
        number_ = -1;
    }

    int number_;
};

[[nodiscard]] Descriptor openDirectoryAt(int parent, const std::string& name);

/// The names in a directory in the order of their bytes. False if it cannot be read.
[[nodiscard]] bool listAt(int directory, std::vector<std::string>& names);

/// Writes all of the bytes, with several calls if necessary.
[[nodiscard]] bool writeAll(int file, std::string_view bytes);

/// Creates a file with mode 0644, whatever the umask is, and writes it. Fails if it is there already.
[[nodiscard]] bool createFileAt(int directory, const std::string& name, std::string_view bytes);

/// Writes a file or a directory to the disk. It is no failure if the file system cannot do this for directories.
[[nodiscard]] bool syncAt(int parent, const std::string& name);

/// Removes a file, or a directory with everything in it, as far as that is possible. Async-signal-safe.
void removeTreeAt(int parent, const char* name) noexcept;

/// Removes an empty directory if the descriptor is that of it, not of another that had its name. Async-signal-safe.
void removeDirectoryAt(int parent, const char* name, int directory) noexcept;

/// The names in a directory in the order of their bytes. False if it cannot be read; `problem` then names the directory
/// and says why.
[[nodiscard]] bool listDirectory(const std::string& directory, std::vector<std::string>& names, std::string& problem);

}  // namespace zev
