#include "consent/command_lines.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iostream>

#include "consent/legibility.h"
#include "lang/environment_locale.h"

namespace zev {

namespace {

constexpr std::size_t mostOfProduct = 64;

bool isOneOf(char c, std::string_view marks) { return marks.find(c) != std::string_view::npos; }

bool isLetterOrDigit(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

std::string problemOfProduct(const std::string& word) {
    const bool isWord = !word.empty() && word.size() <= mostOfProduct && isLetterOrDigit(word.front()) &&
                        std::ranges::all_of(word, [](char c) { return isLetterOrDigit(c) || isOneOf(c, "._+-"); });
    return isWord ? "" : "a product has 1 to 64 of the characters A-Z a-z 0-9 . _ + -, the first a letter or a digit";
}

/// Converts the text to UTF-8. Returns the problem, or an empty text.
std::string takeText(std::string& text) {
    std::string utf8;
    if (!writesAscii()) {
        return std::string("cannot be read in the code page ") + codePageName() + " of the locale; set LC_ALL=C.UTF-8";
    }
    if (!toRecordText(text, utf8)) return "needs 1 to 200 printable characters, without a blank at either end";
    text = utf8;
    return "";
}

void foldCapitals(std::string& word) {
    std::ranges::transform(word, word.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
}

std::string takeFingerprint(std::string& digits) {
    constexpr std::size_t fewest = 32, most = 64;
    foldCapitals(digits);
    const bool isHexadecimal = digits.find_first_not_of("0123456789abcdef") == std::string::npos;
    if (isHexadecimal && digits.size() >= fewest && digits.size() <= most) return "";
    return "a fingerprint has 32 to 64 hexadecimal digits; zev-ask --fingerprint -l LICENSES prints it";
}

/// A bare assent passes here: it is refused later, with the lines that say what to do.
std::string takeAcceptance(std::string& accept) {
    foldCapitals(accept);
    return accept == acceptAny || isBareAssent(accept) ? "" : takeFingerprint(accept);
}

void addLanguageSet(CLI::App& app, int& set) {
    app.add_option("--langset", set, "The set of languages, as for zev: 4 has all, 3 has 13")
        ->capture_default_str()
        ->check(CLI::IsMember({defaultLanguageSet, alternativeLanguageSet}));
}

void declare(CLI::App& app, AskCall& call) {
    constexpr int mostSeconds = 1'000'000;
    app.add_option("-p", call.product, "Product, such as rocket (required)")
        ->type_name("PRODUCT")
        ->check(problemOfProduct);
    app.add_option("-v", call.version, "Its version, such as 2.0 (required)")
        ->type_name("VERSION")
        ->transform(CLI::Validator(takeText, ""));
    app.add_option("-l", call.licenses, "Licence directory (required)")->type_name("LICENSES");
    app.add_option("-s", call.state, "State directory, which receives the record")->type_name("STATE");
    app.add_option("-m", call.master, "Master directory, the records of a group")->type_name("MASTER");
    app.add_option("--accept", call.accept, "Accept the terms with this fingerprint, or \"any\", without a dialogue")
        ->type_name("FINGERPRINT")
        ->transform(CLI::Validator(takeAcceptance, ""));
    app.add_option("--expect", call.expected, "Refuse other terms than those with this fingerprint")
        ->type_name("FINGERPRINT")
        ->transform(CLI::Validator(takeFingerprint, ""));
    app.add_option("--lang", call.language, "Language to show")->type_name("LOCALE");
    app.add_flag("--choose", call.choosesLanguage, "Offer a menu of the languages first");
    addLanguageSet(app, call.languageSet);
    app.add_option("--wait", call.waitSeconds, "Seconds to wait for each answer, at most 1000000; 0 waits for ever")
        ->type_name("SECONDS")
        ->capture_default_str()
        ->check(CLI::Range(0, mostSeconds).description(""));
    app.add_option("--note", call.note, "A note for the record")
        ->type_name("TEXT")
        ->transform(CLI::Validator(takeText, ""));
    app.add_flag_callback(
        "--fingerprint", [&] { call.action = AskCall::Action::fingerprint; },
        "Print the fingerprint of the terms, and exit");
    app.add_flag_callback(
        "--show", [&] { call.action = AskCall::Action::show; }, "Print the terms in UTF-8, and exit");
    app.add_flag_callback(
        "--version", [&] { call.action = AskCall::Action::version; }, "Print the version");
    app.footer(
        "Environment: ZEV_ACCEPT is used for --accept and ZEV_NOTE for --note, if they are not given.\n"
        "Exit status: 0 accepted; 1 declined; 2 nobody can be asked or answers, or the terms are not those that\n"
        "were accepted beforehand; 3 error.");
}

void declare(CLI::App& app, AuditCall& call) {
    CLI::Option* tsv = app.add_flag_callback(
        "--tsv", [&] { call.form = AuditCall::Form::tsv; }, "Print all fields, separated by tabs");
    app.add_flag_callback(
           "--json", [&] { call.form = AuditCall::Form::json; }, "Print JSON")
        ->excludes(tsv);
    app.add_option("--expect", call.expected, "Expect a whole record of these terms in each state directory")
        ->type_name("FINGERPRINT")
        ->transform(CLI::Validator(takeFingerprint, ""));
    app.add_option("-p", call.product, "Show this product only")->type_name("PRODUCT")->check(problemOfProduct);
    app.add_option("-l", call.licenses, "Compare the copies with those of this licence directory")
        ->type_name("LICENSES");
    addLanguageSet(app, call.languageSet);
    app.add_flag("--version", call.showsVersion, "Print the version");
    app.add_option("STATE", call.states, "State directories; without one, the default of this user");
    app.footer("Exit status: 0 every row is ok, 1 a row is not, 2 error.");
}

/// Refuses empty values, such as "$unset" in a shell: the option would count as not given.
void refuseEmptyValues(CLI::App& app) {
    for (CLI::Option* option : app.get_options([](const CLI::Option* o) { return o->get_expected_min() > 0; })) {
        option->check([](const std::string& value) {
            return value.empty() ? "the value is empty, perhaps because a variable is not set" : std::string();
        });
    }
}

/// Takes a value from the environment, by the same rules, if the command line has none.
void takeFromEnvironment(const CLI::App& app, const char* option, const char* variable, std::string& value,
                         std::string (*take)(std::string&)) {
    const char* text = std::getenv(variable);
    if (app.count(option) > 0 || text == nullptr || *text == '\0') return;
    value = text;
    const std::string problem = take(value);
    if (!problem.empty()) throw CLI::ValidationError(variable, problem);
}

void requireOptions(const CLI::App& app, AskCall::Action action) {
    std::vector<const char*> required;
    if (action != AskCall::Action::version) required = {"-l"};
    if (action == AskCall::Action::ask) required = {"-p", "-v", "-l"};
    for (const char* option : required) {
        if (app.count(option) == 0) throw CLI::RequiredError(option);
    }
}

/// Parses the command line and then calls `complete`. On failure `status` has been set.
template <class Complete>
bool parse(CLI::App& app, int argc, char** argv, int wrongCall, int& status, Complete complete) {
    refuseEmptyValues(app);
    try {
        app.parse(argc, argv);
        complete();
        return true;
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help() << std::flush;
        status = 0;
    } catch (const CLI::ParseError& error) {
        std::cerr << app.get_name() << ": " << printableText(error.what()) << "; see " << app.get_name() << " --help."
                  << std::endl;
        status = wrongCall;
    }
    return false;
}

}  // namespace

bool isBareAssent(const std::string& accept) {
    constexpr std::string_view words[]{"yes", "y", "1", "true", "on", "ok"};
    return std::ranges::count(words, accept) > 0;
}

std::optional<AskCall> readAskCall(int argc, char** argv, int& status) {
    AskCall call;
    CLI::App app("Asks a user to accept the terms of a product, once for each text, and records who did.", "zev-ask");
    declare(app, call);
    const bool isRead = parse(app, argc, argv, ask_status::failed, status, [&] {
        requireOptions(app, call.action);
        takeFromEnvironment(app, "--accept", "ZEV_ACCEPT", call.accept, takeAcceptance);
        takeFromEnvironment(app, "--note", "ZEV_NOTE", call.note, takeText);
    });
    return isRead ? std::optional(call) : std::nullopt;
}

std::optional<AuditCall> readAuditCall(int argc, char** argv, int& status) {
    AuditCall call;
    CLI::App app("Shows which terms were accepted, from the records of zev-ask.", "zev-audit");
    declare(app, call);
    const bool isRead = parse(app, argc, argv, audit_status::wrongCall, status, [] {});
    return isRead ? std::optional(call) : std::nullopt;
}

}  // namespace zev
