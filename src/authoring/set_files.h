#pragma once

#include <unicode/unistr.h>

#include <string>
#include <vector>

#include "authoring/finding.h"
#include "authoring/language_profile.h"
#include "files/license_fingerprint.h"
#include "files/regular_file.h"
#include "lang/language_table.h"

namespace zev {

enum class TextKind { agreement, information, otherPartiesTerms, notices };

/// A file of a licence set.
struct SetFile {
    std::string name;
    TextKind kind;
    const LanguageProfile* language;  ///< null for the two files for all languages, which are optional
};

/// The text of a file of a set, decoded.
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

/// Reads a file of a set or its source. A link that leads nowhere is not missing: its author believes that it is there.
[[nodiscard]] FileContent readTextFile(const std::string& path);

/// The name of the agreement or of the information in a language.
[[nodiscard]] std::string nameOf(TextKind kind, const std::string& code);

/// A text without carriage returns, which zev would show like other characters. Those before a line feed belong to the
/// same line end; any other becomes a line feed.
[[nodiscard]] icu::UnicodeString withoutCarriageReturns(const icu::UnicodeString& text);

/// A text without carriage returns and without byte order marks at the start. An agreement gets a line feed at its end
/// if it has none.
[[nodiscard]] icu::UnicodeString repairedText(icu::UnicodeString text, TextKind kind);

/// The bytes of a text in a set: the repaired text in UTF-16, big-endian with a byte order mark. Information gets a
/// line feed at its beginning if it has none. Nothing else changes.
[[nodiscard]] std::string finishedText(const icu::UnicodeString& text, TextKind kind);

/// What identifies the bytes of a set: the SHA-256 of each file that can be read, in the order of the fingerprint, and
/// the fingerprint, which zev-ask records.
struct SetSums {
    std::vector<FileSum> files;
    std::string fingerprint;
};

[[nodiscard]] SetSums sumsOfSet(const std::string& directory);

/// Why a directory may not be replaced by a set: it holds a file that `finishedText` would not have written, or is the
/// working directory. Empty if it may be replaced, or is not there.
[[nodiscard]] std::string whyNotReplaceable(const std::string& directory);

}  // namespace zev
