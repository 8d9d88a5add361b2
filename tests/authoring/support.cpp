#include "authoring/support.h"

#include <gtest/gtest.h>

#include <vector>

#include "authoring/authoring_command_line.h"

namespace zev::test {

Outcome runLicenses(const Arguments& arguments) {
    Arguments words{"zev-licenses"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = runAuthoring(static_cast<int>(argv.size()), argv.data());
    return {status, testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr()};
}

SampleSet::SampleSet() {
    const Outcome built = runLicenses({"build", ZEV_SAMPLE_TEXTS, path("set")});
    EXPECT_EQ(built.status, 0) << built.err;
}

std::string SampleSet::check(const Arguments& options) const {
    Arguments arguments{"check", path("set")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const std::string out = runLicenses(arguments).out;
    return out.substr(0, out.find(path("set")));
}

std::string bigEndian(std::u16string_view text) {
    std::string bytes = "\xFE\xFF";
    for (const char16_t unit : text) bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    return bytes;
}

}  // namespace zev::test
