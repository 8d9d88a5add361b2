#pragma once

#include <unicode/unistr.h>

#include <string>
#include <vector>

#include "authoring/finding.h"
#include "authoring/language_profile.h"
#include "files/license_fingerprint.h"
#include "lang/language_table.h"

namespace zev {

enum class TextKind { agreement, information, otherPartiesTerms, notices };

/// A file of a licence set.
struct SetFile {
    std::string name;
    TextKind kind;
    const LanguageProfile* language;  ///< null for the two that serve all languages, which are optional
};

/// The text of a file of a set, whatever its encoding was.
struct SetText {
    SetFile file;
    std::string path;  ///< as the user can open it
    icu::UnicodeString text;

    [[nodiscard]] Finding finding(Severity severity, const char* kind, const std::string& message) const {
        return {{path, file.name}, {}, severity, kind, message};
    }
    /// A finding about the code unit at `offset`.
    [[nodiscard]] Finding findingAt(int32_t offset, Severity severity, const char* kind,
                                    const std::string& message) const {
        return {{path, file.name}, positionAt(text, offset), severity, kind, message};
    }
};

/// The files of a language set, in the order of its languages, the agreement before the information; those for all
/// languages last.
[[nodiscard]] std::vector<SetFile> filesOfSet(int languageSet);

/// The path of a file in a directory, with one slash between the two even if the user ended the directory with some.
[[nodiscard]] std::string pathIn(std::string directory, const std::string& name);

/// The name of the agreement or of the information in a language.
[[nodiscard]] std::string nameOf(TextKind kind, const std::string& code);

/// A text without what zev would take for characters like any other: byte order marks at the start, and carriage
/// returns (one that is not part of a line end becomes a line feed). An agreement ends with a line feed.
[[nodiscard]] icu::UnicodeString repairedText(icu::UnicodeString text, TextKind kind);

/// The bytes of a text as it stands in a set: repaired, in UTF-16, big-endian with a mark; the information begins with
/// a line feed. Nothing else changes.
[[nodiscard]] std::string finishedText(const icu::UnicodeString& text, TextKind kind);

/// What ties a set to its bytes: the SHA-256 of each of its files that can be read, in the order of the fingerprint,
/// and the fingerprint, which zev-ask asks for and records.
struct SetSums {
    std::vector<FileSum> files;
    std::string fingerprint;
};

[[nodiscard]] SetSums sumsOfSet(const std::string& directory);

/// Why a directory may not be replaced by a set: it holds something that `finishedText` would not have written. Empty
/// if it may, or is not there.
[[nodiscard]] std::string whyNotReplaceable(const std::string& directory);

}  // namespace zev
