#pragma once

#include <string>
#include <vector>

#include "authoring/finding.h"

namespace zev {

struct BuildOptions {
    int languageSet = 0;
    std::string standIn;   ///< the language whose texts take the place of missing ones; none if empty
    std::string language;  ///< the language of the one text, if the sources are a file
    std::vector<Acceptance> accepted;
    bool isStrict = false;  ///< warnings that are not accepted keep the set from being written
};

/// The outcome of building a set. The set is there if `problem` is empty and the findings are not fatal.
struct BuildResult {
    Findings findings;               ///< in the sources, with their paths and positions
    std::string problem;             ///< why a set of good sources could not be written
    std::vector<std::string> notes;  ///< such as "LA: en stands in for cs el"
    std::size_t files = 0;
};

/// Makes the licence directory `output` from texts in UTF-8, by the rules of `finishedText`. `sources` is a directory
/// of texts with the names of the set and ".txt", or one agreement for all languages. If no language has information,
/// or if the information of a language is empty, a line feed takes its place. `output` is replaced as a whole, and only
/// if everything in it could have been written by this function.
[[nodiscard]] BuildResult buildSet(const std::string& sources, const std::string& output, const BuildOptions& options);

}  // namespace zev
