#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <regex>

#include "support/session.h"

namespace zev::test {

inline Finished runLicenses(const Arguments& arguments, Preparation prepare = unprepared) {
    return run(arguments, {}, "", prepare, ZEV_BUILT "/zev-licenses");
}

/// Lets writes fail beyond a few thousand bytes, as on a full disk.
inline void fillDisk() {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{5000, 5000};
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// A licence directory "set" made of the sample texts, in a sandbox of its own.
struct SampleSet : Sandbox {
    SampleSet() { EXPECT_EQ(runLicenses({"build", ZEV_SAMPLE_TEXTS, path("set")}).err, ""); }

    /// The findings of `check` with these options, without sums and summary. They name files without their path.
    [[nodiscard]] std::string check(const Arguments& options = {}) const {
        const std::string all = runLicenses(joined({"check", path("set/")}, options)).out;
        std::string out = std::regex_replace(all, std::regex("[0-9a-f]{64}  [^\n]*\n"), "");
        out.erase(out.find(path("set") + ": "));
        const std::string directory = path("set/");
        for (std::size_t at; (at = out.find(directory)) != out.npos;) out.erase(at, directory.size());
        return out;
    }
};

}  // namespace zev::test
