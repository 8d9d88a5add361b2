#include "authoring/commands.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "authoring/language_profile.h"
#include "authoring/set_builder.h"
#include "authoring/set_checks.h"
#include "authoring/set_files.h"
#include "authoring/shown_language.h"
#include "console/code_page_loss.h"
#include "files/license_fingerprint.h"

namespace zev {

namespace {

struct PageLoss {
    const char* codePage;
    CodePageLoss loss;
};

struct LanguageLosses {
    std::string code;
    std::vector<PageLoss> pages;
};

/// The characters of each language that the code pages of its readers lose. Languages that cannot be shown are left
/// out.
std::vector<LanguageLosses> measureLosses(const CheckCommand& command) {
    std::vector<LanguageLosses> losses;
    for (const auto& [code, englishName] : languagesOfSet(command.languageSet)) {
        ShownLanguage language(command.directory, command.languageSet, code);
        if (!language.load()) continue;
        auto& pages = losses.emplace_back(LanguageLosses{code, {}}).pages;
        for (const char* page : codePagesOfReaders(code)) pages.push_back({page, lossIn(page, language.text())});
    }
    return losses;
}

/// What `check` reports about a directory.
struct CheckReport {
    Findings findings;
    SetSums sums;
    std::vector<LanguageLosses> losses;
};

void writeText(const std::string& directory, const CheckReport& report) {
    std::cout << sumLines(report.sums.files) << listFindings(report.findings);
    for (const auto& [code, pages] : report.losses) {
        const char* separator = ": ";
        std::cout << code;
        for (const auto& [page, loss] : pages) {
            const std::size_t count = loss.count();
            std::cout << separator << page << " loses ";
            if (count == 0) {
                std::cout << "nothing";
            } else {
                std::cout << count << " (" << loss.list() << ")";
            }
            separator = ", ";
        }
        std::cout << "\n";
    }
    const std::string name = nameOfDirectory(directory);
    std::cout << name << ": fingerprint " << report.sums.fingerprint << "\n"
              << name << ": " << summaryOf(report.findings) << "\n";
}

void writeJson(const std::string& directory, const CheckReport& report) {
    nlohmann::ordered_json json{{"directory", directory}};
    json.update(jsonOf(report.findings));
    json["fingerprint"] = report.sums.fingerprint;
    for (const auto& [name, sum] : report.sums.files) json["sha256"][name] = sum;
    for (const auto& [code, pages] : report.losses) {
        for (const auto& [page, loss] : pages) {
            json["codePages"][code][page] = {{"lost", loss.count()}, {"characters", loss.list()}};
        }
    }
    std::cout << textOf(json);
}

/// Findings go to standard error, like those of a compiler.
void writeText(const BuildCommand& command, const BuildResult& result) {
    const std::string directory = nameOfDirectory(command.output) + ": ", summary = summaryOf(result.findings);
    std::cerr << listFindings(result.findings);
    if (result.files == 0) {
        std::cerr << directory << "not written: " << summary << "\n";
        return;
    }
    for (const std::string& note : result.notes) std::cout << note << "\n";
    std::cout << directory << result.files << " files" << (result.findings.empty() ? "" : "; " + summary) << "\n";
}

void writeJson(const BuildCommand& command, const BuildResult& result) {
    nlohmann::ordered_json json{{"sources", command.sources}, {"directory", command.output}};
    json["written"] = result.files > 0;
    json.update(jsonOf(result.findings));
    json["notes"] = result.notes;
    std::cout << textOf(json);
}

void warnIfLanguagesAreUnknown() {
    if (knowsLanguages()) return;
    std::cerr << "zev-licenses: languages in Latin script are not told apart, perhaps because /proc is missing"
              << std::endl;
}

int statusOf(const Findings& findings, bool isStrict) {
    return areFatal(findings, isStrict) ? authoring_status::findings : authoring_status::clean;
}

}  // namespace

std::string nameOfDirectory(std::string directory) {
    while (directory.size() > 1 && directory.ends_with('/')) directory.pop_back();
    return printable(directory);
}

int cannotWork(const std::string& reason) {
    std::cerr << "zev-licenses: " << printable(reason) << std::endl;
    return authoring_status::cannotWork;
}

int runBuild(const BuildCommand& command) {
    warnIfLanguagesAreUnknown();
    const BuildResult result =
        buildSet(command.sources, command.output,
                 {command.languageSet, command.standIn, command.language, command.accepted, command.strict});
    if (!result.problem.empty()) {
        if (!command.json) std::cerr << listFindings(result.findings);
        return cannotWork(result.problem);
    }
    command.json ? writeJson(command, result) : writeText(command, result);
    return statusOf(result.findings, command.strict);
}

int runCheck(const CheckCommand& command) {
    warnIfLanguagesAreUnknown();
    CheckReport report;
    std::string problem;
    if (!checkSet(command.directory, {command.languageSet, command.standIn}, report.findings, problem)) {
        return cannotWork(problem);
    }
    acceptFindings(report.findings, command.accepted);
    report.sums = sumsOfSet(command.directory);
    if (command.pages) report.losses = measureLosses(command);
    command.json ? writeJson(command.directory, report) : writeText(command.directory, report);
    return statusOf(report.findings, command.strict);
}

}  // namespace zev
