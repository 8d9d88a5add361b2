#pragma once

#include <sys/types.h>

#include <map>
#include <string>

#include "support/sandbox.h"

namespace zev::test {

using Environment = std::map<std::string, std::string>;

struct Finished {
    int exitCode;  ///< -1 when a signal ended the process
    std::string out;
    std::string err;
};

/// Runs the real binary to its end: with nothing in its environment but TZ=UTC, a PATH and `environment`, and with
/// `input` in a file on its standard input.
Finished run(const Arguments& arguments, const Environment& environment = {}, const std::string& input = "");

/// The real binary on a terminal of its own, which neither echoes nor changes line ends.
class Terminal {
public:
    Terminal(unsigned short rows, unsigned short columns, const Arguments& arguments, const Environment& environment);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Reads on until `text` has appeared; fails the test when it does not come in time.
    void waitFor(const std::string& text);
    void type(const std::string& line);
    /// Waits for the end of the process; `out` is what no one waited for.
    Finished finish();

private:
    bool readSome();

    pid_t process_ = -1;
    int terminal_ = -1;
    std::string unread_;
};

}  // namespace zev::test
