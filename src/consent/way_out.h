#pragma once

#include <sys/types.h>
#include <termios.h>

#include <csignal>
#include <string>

#include "files/directory_at.h"

/// Whatever must be put right at the end of a run, however it ends: the modes of the terminal, the scratch directory,
/// the directories that were made for it. A signal does it in its handler, with async-signal-safe calls only, and then
/// ends the process as it would have done.
namespace zev {

/// Keeps all signals waiting, so that none finds something done and not yet registered.
class SignalsHeld {
public:
    SignalsHeld() {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_BLOCK, &all, &before_);
    }
    ~SignalsHeld() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    sigset_t before_{};
};

/// From here on, every signal that can be caught and was not ignored puts right what is registered, and then ends the
/// run.
void catchSignals();

/// Creates a directory that goes with the run, unless something is in it then. False when it cannot be created, and is
/// not there either.
[[nodiscard]] bool makeForRun(int parent, const std::string& name, mode_t mode);

/// Brings the names of the directories that were made for the run to the disk, as far as their parents can be read.
[[nodiscard]] bool syncMadeForRun();

/// The parts of a scratch directory.
inline constexpr const char* termsDirectory = "terms";
inline constexpr const char* recordDirectory = "record";
inline constexpr const char* lockName = "lock";

/// Creates a scratch directory, of mode 0700, that goes with the run. None, with the cause in errno, when it cannot be
/// created.
[[nodiscard]] Descriptor makeScratch(int parent, const std::string& name);
/// Removes a scratch directory that is open: its parts, the lock last. Whatever else somebody has moved to its place
/// or into it stays. Async-signal-safe.
void removeScratch(int parent, const char* name, int scratch) noexcept;

/// Takes a terminal: sets it so that every answer can be typed and read, whatever the caller left, with the end-of-file
/// key off. A run in the background is stopped first until it comes to the foreground. Suspension gives the terminal
/// back, and continuation takes it again. False when it cannot be set.
[[nodiscard]] bool takeTerminal(int terminal);
void giveTerminalBack() noexcept;

/// Puts everything right: an end that no signal brings.
void leave() noexcept;

}  // namespace zev
