#pragma once

#include <sys/mman.h>
#include <unicode/unistr.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ios>
#include <string>
#include <string_view>

/// What the fuzz targets share. Each target is one translation unit with libFuzzer's entry point, and compares what zev
/// does with an independent implementation.
namespace zev::fuzz {

/// Ends the process if `holds` is false. libFuzzer then saves the input.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "FINDING: not so: %s\n", what);
    std::abort();
}

inline void requireEqual(std::string_view actual, std::string_view expected, const char* what) {
    if (actual == expected) return;
    for (const std::string_view text : {expected, actual}) {
        std::fwrite(text.data(), 1, text.size(), stderr);
        std::fputs("\n---- is what was expected, and after it what there was\n", stderr);
    }
    require(false, what);
}

/// The input of one execution, which is read from its front.
class Input {
public:
    Input(const uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    /// The next byte; 0 after the end.
    uint8_t byte() {
        if (rest_.empty()) return 0;
        const auto first = static_cast<uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return first;
    }
    /// The bytes before the next `mark`, or up to the end.
    std::string upTo(char mark) {
        const std::string_view piece = rest_.substr(0, rest_.find(mark));
        rest_.remove_prefix(piece.size() == rest_.size() ? piece.size() : piece.size() + 1);
        return std::string(piece);
    }
    [[nodiscard]] std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
};

/// A file that has a path and exists only in memory.
class MemoryFile {
public:
    MemoryFile() : descriptor_(memfd_create("fuzz", MFD_CLOEXEC)) { require(descriptor_ != -1, "memory has files"); }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

    [[nodiscard]] std::string read() const {
        std::string bytes(static_cast<std::size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
        require(pread(descriptor_, bytes.data(), bytes.size(), 0) == std::ssize(bytes), "a file in memory can be read");
        return bytes;
    }
    void write(std::string_view bytes) const {
        const bool written =
            ftruncate(descriptor_, 0) == 0 && pwrite(descriptor_, bytes.data(), bytes.size(), 0) == std::ssize(bytes);
        require(written, "a file in memory can be written");
    }

private:
    int descriptor_;
};

/// Redirects a stream while it lives.
class Redirection {
public:
    Redirection(std::ios& stream, std::streambuf& target) : stream_(stream), former_(stream.rdbuf(&target)) {}
    ~Redirection() { stream_.rdbuf(former_); }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

private:
    std::ios& stream_;
    std::streambuf* former_;
};

/// The text of a licence file, decoded in one piece.
inline icu::UnicodeString decoded(std::string_view bytes) {
    icu::UnicodeString text(bytes.data(), static_cast<int32_t>(bytes.size()), "UTF-16");
    if (const int32_t end = text.indexOf(u'\uFFFF'); end >= 0) text.truncate(end);
    return text;
}

}  // namespace zev::fuzz
