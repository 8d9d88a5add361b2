#pragma once

#include <sys/types.h>
#include <termios.h>

#include <csignal>
#include <string>

#include "files/directory_at.h"

/// What must be undone when a run ends, however it ends: the modes of the terminal, the scratch directory, and the
/// directories that were made for it. A signal handler undoes it with async-signal-safe calls only; the process then
/// dies of the same signal.
namespace zev {

/// Blocks all signals, so that none arrives after something was done and before it is registered.
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

/// From here on, every signal that ends a process, can be caught and was not ignored undoes what is registered before
/// it ends the run.
void catchSignals();

/// Creates a directory that is removed at the end of the run if it is empty then. False if it cannot be created; true
/// also if it was there before.
[[nodiscard]] bool makeForRun(int parent, const std::string& name, mode_t mode);

/// Writes the names of the directories that were made for the run to the disk, as far as their parents can be read.
[[nodiscard]] bool syncMadeForRun();

/// The parts of a scratch directory.
inline constexpr const char* termsDirectory = "terms";
inline constexpr const char* recordDirectory = "record";
inline constexpr const char* lockName = "lock";

/// Creates a scratch directory of mode 0700 that is removed at the end of the run. On failure the result is not open,
/// and errno has the cause.
[[nodiscard]] Descriptor makeScratch(int parent, const std::string& name);
/// Removes an open scratch directory and its parts, the lock last. Anything else that somebody moved to its place or
/// into it stays. Async-signal-safe.
void removeScratch(int parent, const char* name, int scratch) noexcept;

/// Takes a terminal: sets its modes so that every answer can be typed and read, with the end-of-file key off. A run in
/// the background is first stopped until it comes to the foreground. Suspension gives the terminal back, and
/// continuation takes it again. False if the modes cannot be read, or if the run stays in the background.
[[nodiscard]] bool takeTerminal(int terminal);
void giveTerminalBack() noexcept;

/// Undoes everything at the end of a run that no signal ends.
void leave() noexcept;

}  // namespace zev
