#pragma once

#include <string>

#include "authoring/finding.h"

namespace zev {

struct CheckOptions {
    int languageSet = 0;
    std::string standIn;  ///< the language whose texts may stand in the place of others; none where empty
};

/// Checks a licence directory as zev reads it. Findings come in the order of the languages, the agreement first; then
/// those of the files for all languages and of names that zev never reads. False, and `problem` says why, when the
/// directory cannot be read.
[[nodiscard]] bool checkSet(const std::string& directory, const CheckOptions& options, Findings& findings,
                            std::string& problem);

}  // namespace zev
