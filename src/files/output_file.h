#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace zev {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// A file whose content is replaced in place. It is not emptied first: if the content does not change, it is complete
/// at every moment, even after a kill. When it is closed, it is truncated after the last byte written. A symbolic link
/// in its place is followed.
class ReplacedFile {
public:
    /// Opens the file or creates it.
    explicit ReplacedFile(const std::string& path);
    ~ReplacedFile();

    /// Null if the file could not be opened, or is closed.
    [[nodiscard]] std::FILE* stream() const { return file_.get(); }

    /// Whether everything written has reached the file system; if not, errno has the cause.
    [[nodiscard]] bool flush();

    /// Truncates the file after the last byte that reached it, and closes it. True if everything written has reached
    /// it; if not, errno has the cause.
    bool close();

private:
    File file_;
};

/// Creates a file that no other user can read or has opened. What is in its place is removed first. Null if that is not
/// possible, as with a directory, or if something takes its place at once.
[[nodiscard]] File createPrivateFile(const std::string& path);

}  // namespace zev
