#pragma once

#include <string>

#include "authoring/finding.h"

namespace zev {

struct CheckOptions {
    int languageSet = 0;
    std::string standIn;  ///< the language whose texts may take the place of others; none if empty
};

/// Checks a licence directory as zev reads it. The findings are in the order of the languages, those of the agreement
/// first. After them come those of the files for all languages, and of the names that zev never reads. False if the
/// directory cannot be read; `problem` then says why.
[[nodiscard]] bool checkSet(const std::string& directory, const CheckOptions& options, Findings& findings,
                            std::string& problem);

}  // namespace zev
