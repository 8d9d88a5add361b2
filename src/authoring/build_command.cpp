#include <iostream>
#include <nlohmann/json.hpp>

#include "authoring/commands.h"
#include "authoring/messages.h"
#include "authoring/set_builder.h"

namespace zev {

namespace {

void writeJson(const BuildCommand& command, const BuildResult& result) {
    nlohmann::ordered_json report{{"sources", command.sources}, {"directory", command.output}};
    report["written"] = result.files > 0;
    report.update(jsonOf(result.findings));
    report["notes"] = result.notes;
    std::cout << textOf(report);
}

}  // namespace

int runBuild(const BuildCommand& command) {
    const std::string directory = nameOfDirectory(command.output) + ": ";
    const BuildResult result =
        buildSet(command.sources, command.output,
                 {command.languageSet, command.standIn, command.language, command.accepted, command.strict});
    if (!command.json) std::cerr << listFindings(result.findings);
    if (!result.problem.empty()) return cannotWork(result.problem);
    const std::string summary = summaryOf(result.findings);
    if (command.json) {
        writeJson(command, result);
    } else if (result.files == 0) {
        std::cerr << directory << "not written: " << summary << "\n";
    } else {
        for (const std::string& note : result.notes) std::cout << note << "\n";
        std::cout << directory << result.files << " files" << (result.findings.empty() ? "" : "; " + summary) << "\n";
    }
    return areFatal(result.findings, command.strict) ? authoring_status::findings : authoring_status::clean;
}

}  // namespace zev
