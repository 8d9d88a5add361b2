#include <iostream>

#include "authoring/commands.h"
#include "authoring/messages.h"
#include "authoring/set_builder.h"

namespace zev {

int runBuild(const BuildCommand& command) {
    const BuildResult result = buildSet(command.sources, command.output, {command.languageSet, command.standIn});
    std::cerr << listFindings(result.findings);
    if (!result.problem.empty()) return cannotWork(result.problem);
    if (countOf(result.findings, Severity::error) > 0) return authoring_status::findings;
    for (const std::string& note : result.notes) std::cout << note << "\n";
    std::cout << nameOfDirectory(command.output) << ": " << result.files << " files\n";
    return authoring_status::clean;
}

}  // namespace zev
