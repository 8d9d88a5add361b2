#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zev::test {

using Arguments = std::vector<std::string>;

/// Little-endian UTF-16 with a byte order mark.
std::string utf16(std::u16string_view text);

/// A temporary directory for one test, with a complete licence set in `licenses`: of each language the agreement
/// "<code> agreement\n" and the information "<code> information\n".
class Sandbox {
public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    /// The path of a name inside; the directory itself for none.
    [[nodiscard]] std::string path(std::string_view name = "") const;
    /// The arguments of a run on `licenses` and `status`.
    [[nodiscard]] Arguments arguments(const Arguments& more = {}) const;
    [[nodiscard]] bool has(std::string_view name) const;
    /// The bytes of a file; a text of its own when there is none.
    [[nodiscard]] std::string read(std::string_view name) const;
    /// Writes a file and the directories it needs.
    void write(std::string_view name, std::string_view bytes) const;
    /// Replaces a file by a symbolic link, such as one to /dev/full, which opens and cannot be written.
    void link(std::string_view name, const std::string& target) const;
    void remove(std::string_view name) const { std::filesystem::remove_all(path(name)); }

private:
    std::filesystem::path root_;
};

}  // namespace zev::test
