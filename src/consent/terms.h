#pragma once

#include <unicode/unistr.h>

#include <map>
#include <string>
#include <vector>

namespace zev {

/// A file of a licence directory, with its bytes unchanged.
struct TermsFile {
    std::string name;
    std::string bytes;
};

/// The terms of a product: the files of a licence directory, read once.
class Terms {
public:
    /// Reads the files that are there. If the terms cannot be used, `problem` says why: a file that the language set
    /// needs is missing, a file cannot be read, or a file has a character that hides the rest of it from the reader.
    [[nodiscard]] static Terms read(const std::string& directory, int languageSet, std::string& problem);

    /// 64 hexadecimal digits, as licenseFingerprint computes them, independent of the language set.
    [[nodiscard]] const std::string& fingerprint() const { return fingerprint_; }
    [[nodiscard]] const std::vector<TermsFile>& files() const { return files_; }

    /// The language of the agreement in the file of a language: that language itself, unless English or an earlier
    /// language of the table has the same text, which then stands in.
    [[nodiscard]] std::string languageOfText(const std::string& code) const;

    /// The agreement and the information of a language, as zev shows and copies them.
    [[nodiscard]] icu::UnicodeString text(const std::string& code) const;
    /// The same text in UTF-8, and the text of a file of the directory in UTF-8.
    [[nodiscard]] std::string textInUtf8(const std::string& code) const;
    [[nodiscard]] std::string fileInUtf8(const std::string& name) const;

    /// The SHA-256 of each copy that zev makes of the terms in UTF-8, by the name of the copy.
    [[nodiscard]] std::map<std::string, std::string> sumsOfCopies(int languageSet) const;

private:
    [[nodiscard]] const std::string& bytesOf(const std::string& name) const;

    std::vector<TermsFile> files_;
    std::string fingerprint_;
};

}  // namespace zev
