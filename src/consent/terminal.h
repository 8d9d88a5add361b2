#pragma once

#include <istream>
#include <ostream>
#include <streambuf>
#include <string>

#include "console/terminal_geometry.h"
#include "files/directory_at.h"

namespace zev {

/// Nobody answers any more: the end of the wait, a hang-up, the end of input. Leaves the dialogue as an exception,
/// since for the dialogue itself the end of input is no end.
struct NobodyAnswers {
    std::string why;
};

/// The terminal of the session as the input and the output of a dialogue, whatever standard input, output and error
/// are.
class Terminal : public std::streambuf {
public:
    /// Opens /dev/tty and takes it for this run; see takeTerminal. `waitSeconds` is the time without an Enter, or
    /// without room for output, after which nobody is there; 0 stands for ever.
    explicit Terminal(int waitSeconds);
    ~Terminal() override;

    /// Whether there is a terminal.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] ScreenSize size() const { return sizeOfTerminal(descriptor_.get()); }

    /// The next line is read when all output is out, and without what was typed before that.
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

/// Lets std::cin and std::cout be a terminal while it lives.
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
