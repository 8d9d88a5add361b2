#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace zev {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// A file whose content is replaced in place. It is not emptied first, so that a reader, or whoever finds it after a
/// kill, misses nothing of a content that did not change; it is cut behind the last byte written when it is closed. A
/// link in its place is followed.
class ReplacedFile {
public:
    /// Opens the file or creates it.
    explicit ReplacedFile(const std::string& path);
    ~ReplacedFile();

    /// Null when the file could not be opened, or is closed.
    [[nodiscard]] std::FILE* stream() const { return file_.get(); }

    /// Whether all that was written has reached the file system; if not, errno has the cause.
    [[nodiscard]] bool flush();

    /// Cuts the file behind what has reached it and closes it. True when that is all that was written; if not, errno
    /// has the cause.
    bool close();

private:
    File file_;
};

/// Creates a file that no other user can read or has opened. What lay in its place is removed; if that cannot be done,
/// as with a directory, or something is back at once, the result is null.
[[nodiscard]] File createPrivateFile(const std::string& path);

}  // namespace zev
