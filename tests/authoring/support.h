#pragma once

#include <string>

#include "support/session.h"

namespace zev::test {

/// What a command of zev-licenses ended with and wrote.
struct Outcome {
    int status;
    std::string out;
    std::string err;
};

/// Runs zev-licenses in this process.
Outcome runLicenses(const Arguments& arguments);

/// A licence directory "set" made of the sample texts, in a sandbox of its own.
struct SampleSet : Sandbox {
    SampleSet();

    /// The findings of `check` and its options, without the summary.
    [[nodiscard]] std::string check(const Arguments& options = {}) const;
};

/// UTF-16, big-endian behind a mark, as `build` writes it.
std::string bigEndian(std::u16string_view text);

}  // namespace zev::test
