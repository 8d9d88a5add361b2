#include "consent/way_out.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

#include "files/directory_at.h"

namespace zev {

namespace {

/// A directory that was made for the run, with descriptors of its parent and of itself.
struct Made {
    int parent;
    int directory;
    std::array<char, NAME_MAX + 1> name;
};

// Signal handlers read these, so they change only while signals are blocked.
std::array<Made, 64> made;
std::size_t madeCount = 0;
std::array<Made, 2> scratches;  // in the state directory, and in the master directory
std::size_t scratchCount = 0;

pid_t process = 0;
int terminal = -1;
termios settingsBefore;
termios settingsOfRun;
bool isTaken = false;

bool isInForeground(int descriptor) { return tcgetpgrp(descriptor) == getpgrp(); }

void setTerminal(const termios& settings) noexcept {
    while (tcsetattr(terminal, TCSANOW, &settings) != 0 && errno == EINTR) {
    }
}

/// Creates a directory and registers it. On failure it is not there.
bool make(Made& entry, int parent, const std::string& name, mode_t mode) {
    if (name.size() >= entry.name.size()) {
        errno = ENAMETOOLONG;
        return false;
    }
    if (mkdirat(parent, name.c_str(), mode) != 0) return false;
    std::memcpy(entry.name.data(), name.c_str(), name.size() + 1);
    entry.parent = fcntl(parent, F_DUPFD_CLOEXEC, 0);
    entry.directory = openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat status {};
    const bool isOpen = entry.parent != -1 && entry.directory != -1 && fstat(entry.directory, &status) == 0;
    if (isOpen && status.st_uid == geteuid()) return true;
    const int error = isOpen ? EPERM : errno;
    const Descriptor ownParent(entry.parent), ownDirectory(entry.directory);
    unlinkat(parent, name.c_str(), AT_REMOVEDIR);
    errno = error;
    return false;
}

void remove(const Made& entry) noexcept {
    removeDirectoryAt(entry.parent, entry.name.data(), entry.directory);
    close(entry.directory);
    close(entry.parent);
}

void removeScratches() noexcept {
    while (scratchCount > 0) {
        const Made& scratch = scratches[--scratchCount];
        removeScratch(scratch.parent, scratch.name.data(), scratch.directory);
        close(scratch.directory);
        close(scratch.parent);
    }
}

void removeMadeDirectories() noexcept {
    while (madeCount > 0) remove(made[--madeCount]);
}

void putRight() noexcept {
    giveTerminalBack();
    removeScratches();
    removeMadeDirectories();
}

extern "C" void endBySignal(int signal) {
    // Between fork and exec a print command still has this handler, and has nothing to undo.
    if (getpid() == process) putRight();
    // All signals are blocked here; when the handler returns, this one ends the process.
    std::signal(signal, SIG_DFL);
    raise(signal);
}

/// Takes the terminal again, unless the run is in the background.
void takeAgain() noexcept {
    if (terminal == -1 || !isInForeground(terminal)) return;
    setTerminal(settingsOfRun);
    isTaken = true;
}

extern "C" void suspend(int signal) {
    const int error = errno;
    giveTerminalBack();
    struct sigaction before {};
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    sigaction(signal, &standard, &before);
    raise(signal);
    sigset_t only, held;
    sigemptyset(&only);
    sigaddset(&only, signal);
    sigprocmask(SIG_UNBLOCK, &only, &held);  // the run stops here
    sigprocmask(SIG_SETMASK, &held, nullptr);
    sigaction(signal, &before, nullptr);
    takeAgain();
    errno = error;
}

extern "C" void goOn(int) {
    const int error = errno;
    takeAgain();
    errno = error;
}

/// Makes a write to a closed pipe fail instead of ending the run. The signal is not ignored instead, because print
/// commands would inherit that.
extern "C" void doNothing(int) {}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
    action.sa_handler = handler;
    action.sa_flags = 0;
    sigfillset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

/// Corrects the modes with which no answer could be typed or read.
termios settingsForAnswers(termios settings) {
    settings.c_iflag &= ~static_cast<tcflag_t>(INLCR | IGNCR | IUCLC | ISTRIP | PARMRK | IXOFF);
    settings.c_iflag |= ICRNL;
    settings.c_oflag &= ~static_cast<tcflag_t>(OLCUC | OCRNL | ONOCR | ONLRET | OFILL);
    settings.c_oflag |= OPOST | ONLCR;
    settings.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB);
    settings.c_cflag |= CS8 | CREAD;
    settings.c_lflag &= ~static_cast<tcflag_t>(ECHONL | XCASE | NOFLSH | TOSTOP | EXTPROC | FLUSHO);
    settings.c_lflag |= ICANON | ISIG | ECHO | ECHOE | ECHOK | IEXTEN;
    for (const int key : {VEOF, VEOL, VEOL2}) settings.c_cc[key] = _POSIX_VDISABLE;
    return settings;
}

}  // namespace

void catchSignals() {
    process = getpid();
    for (int signal = 1; signal <= SIGRTMAX; ++signal) {
        switch (signal) {
            case SIGKILL:
            case SIGSTOP:
            case SIGCHLD:
            case SIGURG:
            case SIGWINCH:
            case SIGTTIN:
            case SIGTTOU: break;
            case SIGTSTP: handle(signal, suspend); break;
            case SIGCONT: handle(signal, goOn); break;
            case SIGPIPE: handle(signal, doNothing); break;
            default: handle(signal, endBySignal); break;
        }
    }
}

bool makeForRun(int parent, const std::string& name, mode_t mode) {
    const SignalsHeld held;
    if (madeCount == made.size()) {
        errno = ENAMETOOLONG;
        return false;
    }
    if (!make(made[madeCount], parent, name, mode)) return errno == EEXIST;
    ++madeCount;
    return true;
}

bool syncMadeForRun() {
    return std::all_of(made.begin(), made.begin() + madeCount,
                       [](const Made& entry) { return syncAt(entry.parent, ".") || errno == EACCES; });
}

Descriptor makeScratch(int parent, const std::string& name) {
    constexpr mode_t mode = 0700;
    const SignalsHeld held;
    if (scratchCount == scratches.size() || !make(scratches[scratchCount], parent, name, mode)) return Descriptor();
    return Descriptor(fcntl(scratches[scratchCount++].directory, F_DUPFD_CLOEXEC, 0));
}

void removeScratch(int parent, const char* name, int scratch) noexcept {
    for (const char* part : {termsDirectory, recordDirectory, lockName}) removeTreeAt(scratch, part);
    removeDirectoryAt(parent, name, scratch);
}

bool takeTerminal(int descriptor) {
    // In the background this stops the whole job, as its shell expects, unless the signal is ignored.
    while (!isInForeground(descriptor) && tcdrain(descriptor) != 0 && errno == EINTR) {
    }
    if (!isInForeground(descriptor)) return false;

    const SignalsHeld held;
    if (tcgetattr(descriptor, &settingsBefore) != 0) return false;
    terminal = descriptor;
    settingsOfRun = settingsForAnswers(settingsBefore);
    setTerminal(settingsOfRun);
    isTaken = true;
    return true;
}

void giveTerminalBack() noexcept {
    const SignalsHeld held;  // among them SIGTTOU, which would stop a run in the background here
    if (!isTaken) return;
    isTaken = false;
    // If the run was put into the background, the terminal belongs to the job in the foreground.
    const pid_t foreground = tcgetpgrp(terminal);
    if (foreground == -1 || foreground == getpgrp()) setTerminal(settingsBefore);
}

void leave() noexcept {
    const SignalsHeld held;
    putRight();
    terminal = -1;
}

}  // namespace zev
