#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zev {

enum class Severity { error, warning };

/// Something that is wrong with a licence text.
struct Finding {
    std::string file;      ///< as the user knows it
    std::size_t line = 0;  ///< from 1; 0 stands for the file as a whole
    Severity severity = Severity::error;
    const char* kind = "";  ///< its name for programs, such as "soft-hyphen"; the same in every version
    std::string message;
};

using Findings = std::vector<Finding>;

[[nodiscard]] std::size_t countOf(const Findings& findings, Severity severity);

/// "<files>[:<line>]: error|warning: <message>", a line each; findings that differ in their file alone share one, where
/// the first of them stands.
[[nodiscard]] std::string listFindings(const Findings& findings);

/// "3 errors, 1 warning", or "no findings".
[[nodiscard]] std::string summaryOf(const Findings& findings);

/// "1 error", "2 errors".
[[nodiscard]] std::string counted(std::size_t count, const std::string& noun);

/// A name or text from outside in one line of UTF-8: control characters and what is not UTF-8 become U+FFFD.
[[nodiscard]] std::string printable(const std::string& text);

}  // namespace zev
