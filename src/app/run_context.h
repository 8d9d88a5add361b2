#pragma once

#include <unicode/locid.h>

#include <memory>
#include <string>

namespace zev {

class Resource;

/// What one run works on. `createRunContext` of lang/locale_choice.h makes one.
struct RunContext {
    std::string licenseDir;
    std::string statusDir;
    std::string licenseCopyDir;
    int hasMasterPath = 0;  ///< 0 or 1; deliberately an int, as the callers that set and test it expect
    std::string masterPath;
    icu::Locale locale;                  ///< changes together with `resource`
    std::unique_ptr<Resource> resource;  ///< the catalogue of the display language
    int languageSet = 0;
};

}  // namespace zev
