#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

namespace zev {

enum class Severity { error, warning };

/// A file that findings are about.
struct NamedFile {
    std::string path;  ///< as the user can open it: that of the source for `build`, of the file in the set for `check`
    std::string name;  ///< in the set, such as "LA_de"
};

/// A place in a text, in lines and characters (code points) from 1; 0 stands for none.
struct Position {
    std::size_t line = 0;
    std::size_t column = 0;

    bool operator==(const Position&) const = default;
};

/// The place of the code unit `offset`; lines end in line feeds.
[[nodiscard]] Position positionAt(const icu::UnicodeString& text, int32_t offset);

/// The end of the line that begins at `begin`, without its line feed, in code units.
[[nodiscard]] int32_t lineEnd(const icu::UnicodeString& text, int32_t begin);

/// Something that is wrong with a licence text.
struct Finding {
    NamedFile file;     ///< both names are empty if the finding is about no file
    Position position;  ///< none if the finding is about the file as a whole
    Severity severity = Severity::error;
    const char* kind = "";  ///< its name for programs, such as "soft-hyphen"; the same in every version
    std::string message;
    bool isAccepted = false;  ///< a warning that the user knows and lets pass
};

using Findings = std::vector<Finding>;

/// Adds more findings at the end.
void append(Findings& findings, Findings more);

/// Warnings of one kind that the user lets pass, as given to --accept.
struct Acceptance {
    std::string kind;
    std::string file;  ///< the name of a file in the set; empty for all files
};

/// Reads "KIND" or "KIND:FILE". Nothing if one of them is empty.
[[nodiscard]] std::optional<Acceptance> parseAcceptance(const std::string& text);

/// Marks the warnings that the acceptances meet as accepted. Errors cannot be accepted. An acceptance that meets no
/// warning is a warning itself, about no file.
void acceptFindings(Findings& findings, const std::vector<Acceptance>& acceptances);

/// The findings of one severity that are not accepted.
[[nodiscard]] std::size_t countOf(const Findings& findings, Severity severity);

/// Whether a command ends with the exit status of findings: for errors always, for warnings that are not accepted if it
/// is strict.
[[nodiscard]] bool areFatal(const Findings& findings, bool isStrict);

/// One line for each finding: "<path>[:<line>:<column>]: error|warning|accepted: <message> [<kind>]". Findings without
/// a position that differ in their file alone share the line of the first, whose directory they do not repeat.
[[nodiscard]] std::string listFindings(const Findings& findings);

/// "3 errors, 1 warning, 2 accepted", without the last part if there are none; or "no findings".
[[nodiscard]] std::string summaryOf(const Findings& findings);

/// {"errors", "warnings", "accepted", "findings"}: each finding with "file", the name in the set, "path", "line"
/// and "column" if it has a position, "severity", "kind", "message" and "accepted".
[[nodiscard]] nlohmann::ordered_json jsonOf(const Findings& findings);

/// A report as text in UTF-8; bytes of names that are not UTF-8 are replaced.
[[nodiscard]] std::string textOf(const nlohmann::ordered_json& report);

/// "1 error", "2 errors".
[[nodiscard]] std::string counted(std::size_t count, const std::string& noun);

/// "soft hyphen", "soft hyphen (x2)".
[[nodiscard]] std::string countedName(const std::string& name, std::size_t count);

[[nodiscard]] std::string utf8Of(const icu::UnicodeString& text);

/// A name or text from outside as one line of UTF-8: control characters and bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string printable(const std::string& text);

}  // namespace zev
