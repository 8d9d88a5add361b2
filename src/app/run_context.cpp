#include "app/run_context.h"

#include <utility>

#include "app/debug_trace.h"
#include "lang/locale_choice.h"
#include "lang/resource.h"

namespace zev {

RunContext::RunContext(std::string licensePath, std::string statusPath, int set)
    : licenseDir(std::move(licensePath)),
      statusDir(std::move(statusPath)),
      licenseCopyDir(statusDir + pathSeparator() + "license"),
      languageSet(set) {
    chooseInitialLanguage(*this);
}

RunContext::~RunContext() = default;

}  // namespace zev
