#pragma once

#include <istream>
#include <ostream>
#include <streambuf>
#include <string>

#include "console/terminal_geometry.h"
#include "files/directory_at.h"

namespace zev {

/// Nobody answers any more: the time is over, or the terminal is gone. An exception, because the dialogue itself does
/// not end when its input ends.
struct NobodyAnswers {
    std::string why;
};

/// The controlling terminal of the session as the input and output of a dialogue, independent of the standard streams.
class Terminal : public std::streambuf {
public:
    /// Opens /dev/tty and takes it for this run; see takeTerminal. If nobody presses Enter, or the terminal takes no
    /// output, for `waitSeconds`, reading or writing throws NobodyAnswers; 0 waits for ever.
    explicit Terminal(int waitSeconds);
    ~Terminal() override;

    /// Whether there is a terminal.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] ScreenSize size() const { return sizeOfTerminal(descriptor_.get()); }

    /// Gives up the output that nobody read, and goes on if somebody has stopped it, so that a last message can be
    /// written.
    void discardOutput();

    /// Before the next line is read, waits until all output is shown and drops what was typed until then.
    void discardTypeAhead() { discardsTypeAhead_ = true; }

protected:
    int_type underflow() override;
    int_type overflow(int_type byte) override;
    std::streamsize xsputn(const char* bytes, std::streamsize size) override;
    int sync() override;

private:
    void waitFor(short event);
    void waitUntilOut();

    Descriptor descriptor_;
    int waitSeconds_;
    bool isOpen_ = false;
    bool discardsTypeAhead_ = true;
    std::string line_, output_;
};

/// While it lives, std::cin and std::cout read from and write to a terminal.
class StandardStreamsOn {
public:
    explicit StandardStreamsOn(Terminal& terminal);
    ~StandardStreamsOn();
    StandardStreamsOn(const StandardStreamsOn&) = delete;
    StandardStreamsOn& operator=(const StandardStreamsOn&) = delete;

private:
    std::streambuf* input_;
    std::streambuf* output_;
};

}  // namespace zev
