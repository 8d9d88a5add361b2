#pragma once

#include <unicode/unistr.h>

#include <map>
#include <string>
#include <vector>

namespace zev {

/// A file of a licence directory, as its bytes are.
struct TermsFile {
    std::string name;
    std::string bytes;
};

/// The terms of a product: the files of a licence directory, read once.
class Terms {
public:
    /// Reads the files that are there. When `problem` is not empty, the terms cannot be used: a file that the language
    /// set needs is missing, one cannot be read, or one has a character that hides the rest of it from the reader.
    [[nodiscard]] static Terms read(const std::string& directory, int languageSet, std::string& problem);

    /// 64 hexadecimal digits; see licenseFingerprint. It does not depend on the language set.
    [[nodiscard]] const std::string& fingerprint() const { return fingerprint_; }
    [[nodiscard]] const std::vector<TermsFile>& files() const { return files_; }

    /// The language whose agreement stands in the file of a language: English or an earlier language where theirs is
    /// the same text, which then stands in.
    [[nodiscard]] std::string languageOfText(const std::string& code) const;

    /// The agreement and the information of a language, as zev shows and copies them.
    [[nodiscard]] icu::UnicodeString text(const std::string& code) const;
    /// The same as bytes in UTF-8, and those of a file of the directory.
    [[nodiscard]] std::string textInUtf8(const std::string& code) const;
    [[nodiscard]] std::string fileInUtf8(const std::string& name) const;

    /// The copies that zev makes of them in UTF-8: the SHA-256 of each, by its name.
    [[nodiscard]] std::map<std::string, std::string> sumsOfCopies(int languageSet) const;

private:
    [[nodiscard]] const std::string& bytesOf(const std::string& name) const;

    std::vector<TermsFile> files_;
    std::string fingerprint_;
};

}  // namespace zev
