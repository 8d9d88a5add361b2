#pragma once

#include <sys/types.h>
#include <termios.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lang/language_table.h"

namespace zev::test {

using Arguments = std::vector<std::string>;
using Environment = std::map<std::string, std::string>;

/// The arguments, followed by more.
Arguments joined(Arguments arguments, const Arguments& more);

/// Every language of the larger set, in the order of the table.
std::vector<LanguageEntry> languages();

/// UTF-16 as zev-licenses writes it: big-endian, after a byte order mark.
std::string utf16(std::u16string_view text);

/// A temporary directory for one test, with a complete licence set in `licenses`: for each language the agreement
/// "<code> agreement\n" and the information "<code> information\n".
class Sandbox {
public:
    Sandbox();
    ~Sandbox() { std::filesystem::remove_all(root_); }
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    /// The path of a name inside; without a name, that of the directory itself.
    [[nodiscard]] std::string path(std::string_view name = "") const { return name.empty() ? root_ : root_ / name; }
    /// The arguments of a run on `licenses` and `status`.
    [[nodiscard]] Arguments arguments(const Arguments& more = {}) const {
        return joined({"-l", path("licenses"), "-s", path("status")}, more);
    }
    [[nodiscard]] bool has(std::string_view name) const { return std::filesystem::exists(path(name)); }
    /// The bytes of a file; a special text if there is none.
    [[nodiscard]] std::string read(std::string_view name) const;
    /// Writes a file and the directories it needs.
    void write(std::string_view name, std::string_view bytes) const;
    /// Replaces a file by a symbolic link, for example to /dev/full, which can be opened and not written.
    void link(std::string_view name, const std::string& target) const;
    void remove(std::string_view name) const { std::filesystem::remove_all(path(name)); }

private:
    std::filesystem::path root_;
};

struct Finished {
    int exitCode;  ///< the negative number of the signal if one ended the process
    std::string out;
    std::string err;
};

/// What the new process does before it starts the binary.
using Preparation = void (*)();
inline void unprepared() {}
/// Drops what lets root pass over permissions; other users have nothing to drop.
void boundByPermissions();

/// Runs the real binary, or another program, to its end: with nothing in its environment but TZ=UTC, a PATH and
/// `environment`, and with `input` in a file on its standard input.
Finished run(const Arguments& arguments, const Environment& environment = {}, const std::string& input = "",
             Preparation prepare = unprepared, const std::string& program = "");

/// The real binary, or another program, on a terminal of its own, which neither echoes nor changes line ends.
class Terminal {
public:
    Terminal(unsigned short rows, unsigned short columns, const Arguments& arguments,
             const Environment& environment = {}, Preparation prepare = unprepared, const std::string& program = "");
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Reads on until `text` has appeared; fails the test if it does not appear in time.
    void waitFor(const std::string& text);
    /// Types a line when the process waits for input, like a user who has read what is shown.
    void type(const std::string& line);
    /// Types a line when `text` has appeared.
    void answer(const std::string& text, const std::string& line) {
        waitFor(text);
        type(line);
    }
    /// What has appeared after the text that was waited for last.
    [[nodiscard]] const std::string& screen() const { return unread_; }
    void raise(int signal) const;
    void hangUp();
    /// The present modes of the terminal, and those that it had when the process began.
    [[nodiscard]] termios settings() const;
    [[nodiscard]] const termios& settingsBefore() const { return before_; }
    /// Waits for the end of the process; `out` is what appeared after the text that was waited for last.
    Finished finish();
    /// Does the same without reading what is shown.
    int finishUnread();

private:
    bool readSome();
    void waitUntilItSleeps() const;

    pid_t process_ = -1;
    int terminal_ = -1;
    termios before_{};
    std::string unread_;
};

}  // namespace zev::test
