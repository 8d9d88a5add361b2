#include "authoring/authoring_command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "app/start_process.h"
#include "authoring/commands.h"
#include "authoring/set_files.h"
#include "console/code_page_loss.h"
#include "lang/environment_locale.h"

namespace zev {

namespace {

constexpr int mostCells = 10'000;  ///< in a row or column of any terminal

/// The arguments of the commands, of which one is run.
struct Calls {
    BuildCommand build;
    CheckCommand check;
    PreviewCommand preview;
};

void addLanguageSet(CLI::App& command, int& set) {
    command.add_option("--langset", set, "The set of languages, as for zev: 4 has all, 3 has 13")
        ->capture_default_str()
        ->check(CLI::IsMember({defaultLanguageSet, alternativeLanguageSet}));
}

void addAcceptances(CLI::App& command, std::vector<Acceptance>& accepted) {
    const auto accept = [&accepted](const std::string& value) {
        const auto acceptance = parseAcceptance(value);
        if (acceptance) accepted.push_back(*acceptance);
        return acceptance.has_value();
    };
    command
        .add_option_function<std::vector<std::string>>(
            "--accept",
            [accept](const std::vector<std::string>& values) {
                if (!std::ranges::all_of(values, accept))
                    throw CLI::ValidationError("--accept", "not KIND or KIND:FILE");
            },
            "Accept the warnings of this kind, in this file or in all; can be repeated")
        ->type_name("KIND[:FILE]")
        ->allow_extra_args(false);
}

void addFindings(CLI::App& command, bool& json, bool& strict, std::vector<Acceptance>& accepted) {
    command.add_flag("--json", json, "Write JSON");
    command.add_flag("--strict", strict, "Count warnings as failures");
    addAcceptances(command, accepted);
}

void declareBuild(CLI::App& command, BuildCommand& build) {
    command.add_option("SOURCES", build.sources, "Directory with LA_xx.txt and LI_xx.txt in UTF-8, or one agreement")
        ->required()
        ->type_name("");
    command.add_option("OUT", build.output, "Licence directory to make or to replace")->required()->type_name("");
    CLI::Option* const standIn =
        command.add_option("--stand-in", build.standIn, "Language whose text takes the place of a missing one")
            ->type_name("LANGUAGE");
    command.add_option("--lang", build.language, "Language of the one agreement, which takes the place of all others")
        ->type_name("LANGUAGE")
        ->excludes(standIn);
    addFindings(command, build.json, build.strict, build.accepted);
    addLanguageSet(command, build.languageSet);
}

void declareCheck(CLI::App& command, CheckCommand& check) {
    command.add_option("DIR", check.directory, "Licence directory")->required()->type_name("");
    command.add_option("--stand-in", check.standIn, "Language whose texts may take the place of others")
        ->type_name("LANGUAGE");
    command.add_flag("--pages", check.pages, "Add the characters that the code pages of each language lose");
    addFindings(command, check.json, check.strict, check.accepted);
    addLanguageSet(command, check.languageSet);
}

void declarePreview(CLI::App& command, PreviewCommand& preview) {
    const auto codePageProblem = [](const std::string& name) {
        return isCodePage(name) ? std::string() : "unknown code page: " + name;
    };
    command.add_option("DIR", preview.directory, "Licence directory")->required()->type_name("");
    command.add_option("--lang", preview.languages, "Languages, such as it,ru; by default all of the set")
        ->type_name("LANGUAGES")
        ->delimiter(',');
    command.add_option("--width", preview.width, "Columns of the terminal")
        ->type_name("COLUMNS")
        ->capture_default_str()
        ->check(CLI::Range(1, mostCells).description(""));
    command.add_option("--code-page", preview.codePage, "Code page of the terminal: count what it loses")
        ->type_name("NAME")
        ->check(codePageProblem);
    command.add_option("--pages-of", preview.pageHeight, "Lines of the terminal: show the text in pages, with prompts")
        ->type_name("LINES")
        ->check(CLI::Range(1, mostCells).description(""));
    command.add_option("--html", preview.html, "Write a page for a browser to this file")->type_name("FILE");
    addLanguageSet(command, preview.languageSet);
}

/// An empty value would count as an option that was not given.
void refuseEmptyValues(CLI::App& command) {
    const auto problem = [](const std::string& value) {
        return value.empty() ? "the value is empty, perhaps because a variable is not set" : std::string();
    };
    for (CLI::Option* option : command.get_options([](const CLI::Option* o) { return o->get_expected_min() > 0; })) {
        option->check(problem);
    }
}

/// Throws, as CLI11 does for the wrong use of an option. CLI11 itself cannot check what depends on two options.
void requireLanguage(const std::string& option, const std::string& code, int languageSet) {
    const auto hasCode = [&](const LanguageEntry& language) { return language.code == code; };
    if (code.empty() || std::ranges::any_of(languagesOfSet(languageSet), hasCode)) return;
    throw CLI::ValidationError(option, "no language of the set: " + code);
}

void checkLanguages(const Calls& calls) {
    requireLanguage("--stand-in", calls.build.standIn, calls.build.languageSet);
    requireLanguage("--lang", calls.build.language, calls.build.languageSet);
    requireLanguage("--stand-in", calls.check.standIn, calls.check.languageSet);
    for (const std::string& code : calls.preview.languages) {
        requireLanguage("--lang", code, calls.preview.languageSet);
    }
}

}  // namespace

int runAuthoring(int argc, char** argv) {
    startProcess();
    Calls calls;
    CLI::App app("Builds, checks and shows licence directories for zev.", "zev-licenses");
    app.set_version_flag("--version", runOptions.version, "Print the version and exit");
    app.footer("Exit status: 0 success, 1 errors in the texts or, with --strict, warnings, 2 the command cannot work.");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "zev-licenses: " + std::string(error.what()) + "; see zev-licenses --help.\n";
    });
    app.require_subcommand(0, 1);  // a missing one is an error below, after unknown words have been reported
    CLI::App& build = *app.add_subcommand("build", "Make a licence directory from texts in UTF-8");
    CLI::App& check = *app.add_subcommand("check", "Find what is wrong with a licence directory");
    CLI::App& preview = *app.add_subcommand("preview", "Show what zev shows of a licence directory");
    declareBuild(build, calls.build);
    declareCheck(check, calls.check);
    declarePreview(preview, calls.preview);
    for (CLI::App* command : {&build, &check, &preview}) refuseEmptyValues(*command);

    adoptLocale("C.UTF-8");  // all output is UTF-8, as zev shows its texts on such a terminal
    int status = authoring_status::clean;
    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) throw CLI::RequiredError("A subcommand");
        checkLanguages(calls);
        status = build.parsed()   ? runBuild(calls.build)
                 : check.parsed() ? runCheck(calls.check)
                                  : runPreview(calls.preview);
    } catch (const CLI::ParseError& error) {
        if (app.exit(error) != 0) status = authoring_status::cannotWork;
    } catch (const std::exception& error) {
        status = cannotWork(error.what());
    }
    return std::cout.flush() ? status : cannotWork("standard output cannot be written to");
}

}  // namespace zev
