#pragma once

#include <string>
#include <vector>

#include "authoring/finding.h"

namespace zev {

struct BuildOptions {
    int languageSet = 0;
    std::string standIn;  ///< the language whose text takes the place of a missing one; none where empty
};

/// What building a set came to. The set is there when `problem` is empty and no finding is an error.
struct BuildResult {
    Findings findings;               ///< errors in the sources, and files among them that are no source
    std::string problem;             ///< why a set of good sources could not be written
    std::vector<std::string> notes;  ///< such as "LA: en stands in for cs el"
    std::size_t files = 0;
};

/// Makes the licence directory `output` of the texts in `sources`, which are named as in the set with ".txt" behind and
/// written in UTF-8, by the rules of finishedText. `output` is replaced as a whole, and only when it holds nothing that
/// this would not have written.
[[nodiscard]] BuildResult buildSet(const std::string& sources, const std::string& output, const BuildOptions& options);

}  // namespace zev
