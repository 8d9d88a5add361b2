#include "consent/terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <cerrno>
#include <chrono>
#include <iostream>

#include "consent/way_out.h"
#include "console/console_io.h"

namespace zev {

namespace {

constexpr const char* isGone = "the terminal is gone";

}  // namespace

Terminal::Terminal(int waitSeconds)
    : descriptor_(open("/dev/tty", O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)), waitSeconds_(waitSeconds) {
    isOpen_ = descriptor_.isOpen() && takeTerminal(descriptor_.get());
}

Terminal::~Terminal() { giveTerminalBack(); }

void Terminal::waitFor(short event) {
    constexpr int forEver = -1, milliseconds = 1000;
    pollfd terminal{descriptor_.get(), event, 0};
    int ready;
    do {
        ready = poll(&terminal, 1, waitSeconds_ == 0 ? forEver : waitSeconds_ * milliseconds);
    } while (ready == -1 && errno == EINTR);  // after a suspension, the time starts anew
    if (ready == 0) throw NobodyAnswers{"nobody answered within " + std::to_string(waitSeconds_) + " s"};
    if (ready == -1) throw NobodyAnswers{isGone};
}

/// Waits until all output is shown, but not for ever as tcdrain alone does.
void Terminal::waitUntilOut() {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int queued = 0; ioctl(descriptor_.get(), TIOCOUTQ, &queued) == 0 && queued > 0;) {
        if (waitSeconds_ != 0 && Clock::now() - start > std::chrono::seconds(waitSeconds_)) {
            throw NobodyAnswers{"nobody reads what is shown"};
        }
        poll(nullptr, 0, 10);
    }
    tcdrain(descriptor_.get());
}

void Terminal::discardOutput() {
    const SignalsHeld held;  // among them SIGTTOU, which would stop a run in the background here
    tcflush(descriptor_.get(), TCOFLUSH);
    // Only output that a program has stopped can be started by one.
    tcflow(descriptor_.get(), TCOOFF);
    tcflow(descriptor_.get(), TCOON);
}

Terminal::int_type Terminal::underflow() {
    sync();
    if (discardsTypeAhead_) {
        waitUntilOut();
        tcflush(descriptor_.get(), TCIFLUSH);
        discardsTypeAhead_ = false;
    }
    line_.resize(4096);  // the longest line of a terminal
    ssize_t size;
    do {
        waitFor(POLLIN);
        size = read(descriptor_.get(), line_.data(), line_.size());
    } while (size == -1 && (errno == EAGAIN || errno == EINTR));
    if (size <= 0) throw NobodyAnswers{isGone};
    line_.resize(static_cast<std::size_t>(size));
    // The dialogue reads nothing after an answer that is too long, and cuts one at a NUL. "?" makes it repeat the
    // prompt.
    if (line_.find('\n') >= answerSize || line_.find('\0') != std::string::npos) line_ = "?\n";
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return traits_type::to_int_type(*gptr());
}

Terminal::int_type Terminal::overflow(int_type byte) {
    if (!traits_type::eq_int_type(byte, traits_type::eof())) output_ += traits_type::to_char_type(byte);
    return traits_type::not_eof(byte);
}

std::streamsize Terminal::xsputn(const char* bytes, std::streamsize size) {
    constexpr std::size_t enough = 1 << 16;
    output_.append(bytes, static_cast<std::size_t>(size));
    if (output_.size() >= enough) sync();
    return size;
}

int Terminal::sync() {
    for (std::size_t begin = 0; begin < output_.size();) {
        waitFor(POLLOUT);
        const ssize_t size = write(descriptor_.get(), output_.data() + begin, output_.size() - begin);
        if (size >= 0) {
            begin += static_cast<std::size_t>(size);
        } else if (errno != EAGAIN && errno != EINTR) {
            throw NobodyAnswers{isGone};
        }
    }
    output_.clear();
    return 0;
}

StandardStreamsOn::StandardStreamsOn(Terminal& terminal)
    : input_(std::cin.rdbuf(&terminal)), output_(std::cout.rdbuf(&terminal)) {
    // With this, a stream passes on what its buffer throws.
    std::cin.exceptions(std::ios::badbit);
    std::cout.exceptions(std::ios::badbit);
}

StandardStreamsOn::~StandardStreamsOn() {
    std::cin.exceptions(std::ios::goodbit);
    std::cout.exceptions(std::ios::goodbit);
    std::cin.rdbuf(input_);
    std::cout.rdbuf(output_);
}

}  // namespace zev
