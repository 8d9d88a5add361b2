#pragma once

#include <sha2.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zev {

/// SHA-256 (FIPS 180-4) of bytes that are added piece by piece.
class Sha256 {
public:
    Sha256() { SHA256Init(&context_); }
    void add(std::string_view bytes);
    /// 64 hexadecimal digits in lower case. Call it once, after all bytes were added.
    [[nodiscard]] std::string digits();

private:
    SHA2_CTX context_;
};

[[nodiscard]] std::string sha256(std::string_view bytes);

struct FileSum {
    std::string name;
    std::string sum;  ///< as sha256 gives it
};

/// The lines that sha256sum writes for files whose names need no escapes.
[[nodiscard]] std::string sumLines(std::span<const FileSum> files);

/// The names of all files of a language set in the order of a fingerprint: the agreements in the order of the
/// languages, the information of each, the terms of other parties, the notices.
[[nodiscard]] std::vector<std::string> licenseFileNames(int languageSet);

/// The fingerprint of those files of licenseFileNames(defaultLanguageSet) that are there, in that order: the output of
/// `sha256sum FILE... | sha256sum`.
[[nodiscard]] std::string licenseFingerprint(std::span<const FileSum> files);

}  // namespace zev
