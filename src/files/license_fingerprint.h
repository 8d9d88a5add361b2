#pragma once

#include <span>
#include <string>
#include <vector>

#include "files/sha256.h"

namespace zev {

/// The names of all files of a language set in the order of a fingerprint: the agreements in the order of the
/// languages, the information of each, the terms of other parties, the notices.
[[nodiscard]] std::vector<std::string> licenseFileNames(int languageSet);

/// The fingerprint of the files that are there of licenseFileNames(defaultLanguageSet), in that order: what
/// `sha256sum FILE... | sha256sum` gives.
[[nodiscard]] std::string licenseFingerprint(std::span<const FileSum> files);

}  // namespace zev
