#include <iostream>
#include <nlohmann/json.hpp>

#include "authoring/commands.h"
#include "authoring/finding.h"
#include "authoring/messages.h"
#include "authoring/set_checks.h"
#include "authoring/set_files.h"
#include "authoring/shown_language.h"
#include "console/code_page_loss.h"
#include "files/sha256.h"

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

/// What the code pages of its readers lose of each language; languages that cannot be shown are left out.
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

void writeText(const CheckCommand& command, const Findings& findings, const std::vector<LanguageLosses>& losses) {
    const SetSums sums = sumsOfSet(command.directory);
    std::cout << sumLines(sums.files) << listFindings(findings);
    for (const auto& [code, pages] : losses) {
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
    const std::string directory = nameOfDirectory(command.directory);
    std::cout << directory << ": fingerprint " << sums.fingerprint << "\n"
              << directory << ": " << summaryOf(findings) << "\n";
}

void writeJson(const CheckCommand& command, const Findings& findings, const std::vector<LanguageLosses>& losses) {
    nlohmann::ordered_json report{{"directory", command.directory}};
    report.update(jsonOf(findings));
    const SetSums sums = sumsOfSet(command.directory);
    report["fingerprint"] = sums.fingerprint;
    for (const auto& [name, sum] : sums.files) report["sha256"][name] = sum;
    for (const auto& [code, pages] : losses) {
        for (const auto& [page, loss] : pages) {
            report["codePages"][code][page] = {{"lost", loss.count()}, {"characters", loss.list()}};
        }
    }
    std::cout << textOf(report);
}

}  // namespace

int runCheck(const CheckCommand& command) {
    Findings findings;
    std::string problem;
    if (!checkSet(command.directory, {command.languageSet, command.standIn}, findings, problem)) {
        return cannotWork(problem);
    }
    acceptFindings(findings, command.accepted);
    const auto losses = command.pages ? measureLosses(command) : std::vector<LanguageLosses>{};
    (command.json ? writeJson : writeText)(command, findings, losses);
    return areFatal(findings, command.strict) ? authoring_status::findings : authoring_status::clean;
}

}  // namespace zev
