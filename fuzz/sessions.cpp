// Compares whole runs of zev, from the command line to the exit code, with a model of the dialogue: screen, command
// log, print commands with their document, exit code, and what is recorded. Input: two bytes for the setup, then the
// answers.

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <sstream>

#include "app/run_driver.h"
#include "app/run_options.h"
#include "console/terminal_geometry.h"
#include "lang/environment_locale.h"
#include "lang/resource_factory.h"
#include "session_model.h"
#include "support.h"
#include "support/session.h"

namespace zev::fuzz {
namespace {

const std::string documentStem = "/tmp/zevdoc_" + std::to_string(getpid()) + "_";

std::string utf8(const icu::UnicodeString& text) {
    std::string bytes;
    text.unescape().toUTF8String(bytes);
    return bytes;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The print commands of the run, which are not executed.
struct Printer {
    bool lpWorks = false;
    bool lprWorks = false;
    std::string printed;

    int run(const std::string& command) {
        const std::string path = command.substr(command.find(' ') + 1, command.find(" >") - command.find(' ') - 1);
        printed += command + "\n" + contentOf(path);
        return (command.starts_with("lp ") ? lpWorks : lprWorks) ? 0 : 256;
    }
} printer;

struct Endless {};

/// Ends a run that would go on for ever, because there is no answer left to read.
class Screen : public std::stringbuf {
    int sync() override {
        if (std::cin.fail() && ++flushesWithoutInput_ > 8) throw Endless();
        return 0;
    }
    int flushesWithoutInput_ = 0;
};

/// Removes the digits of the addresses on a screen.
std::string withoutAddresses(std::string screen) {
    for (auto at = screen.find("0x"); at != std::string::npos; at = screen.find("0x", at + 2)) {
        screen.erase(at + 2, screen.find_first_not_of("0123456789abcdef", at + 2) - at - 2);
    }
    return screen;
}

/// A licence directory, with what a session shows of it.
struct Licenses {
    explicit Licenses(bool hasTerms) {
        for (const char* code : {"en", "fr"}) {
            sandbox.write(std::string("licenses/LI_") + code, test::utf16(u"one\ntwo\n\nfour\n"));
        }
        if (!hasTerms) return;
        terms = {"theirs\n", "\n", "too\n"};
        sandbox.write("licenses/non_vur_license", test::utf16(u"theirs\n\ntoo\n"));
    }

    /// In the order of SessionSetup, for a user of the language.
    [[nodiscard]] std::vector<LanguageTexts> languages(const std::string& chosen) const {
        setenv("LC_ALL", (chosen + ".UTF-8").c_str(), 1);
        adoptEnvironmentLocale();
        if (chosen == "en") return {texts(chosen, "")};
        return {texts(chosen, "en"), texts("en", chosen)};
    }

    const test::Sandbox sandbox;
    Lines terms;

private:
    [[nodiscard]] LanguageTexts texts(const std::string& code, const std::string& other) const {
        const auto resource = createResource(code.c_str(), false);
        std::string prompt = utf8(resource->CLICONTMSG_KEY());
        prompt.resize(prompt.size() - 2);
        prompt += ", \"3\" " + utf8(resource->PRINT_KEY());
        if (!terms.empty()) prompt += ", \"4\" " + utf8(resource->NONVURTERMS_KEY());
        if (!other.empty()) prompt += ", \"5\" " + utf8(createResource(other.c_str(), false)->LANGNAME_KEY());
        return {code,
                {code + " agreement\n", "one\n", "two\n", "\n", "four\n"},
                prompt + ".\n",
                utf8(resource->CLIACCMSG_KEY()),
                utf8(resource->CLICFMMSG_KEY())};
    }
};

/// The traces of one run of zev.
SessionTraces play(const test::Sandbox& sandbox, const SessionSetup& setup, std::string_view answers) {
    static const MemoryFile log, file;
    static const int device = open("/dev/null", O_RDONLY);
    static const int regular = open(file.path().c_str(), O_RDONLY);
    dup2(setup.echoesInput ? regular : device, STDIN_FILENO);
    setenv("LINES", std::to_string(setup.height).c_str(), 1);
    setenv("COLUMNS", "10000", 1);
    log.write("");
    printer = {setup.lpWorks, setup.lprWorks, ""};
    runOptions = {};

    std::vector<std::string> words = sandbox.arguments({"-cmdlog", log.path()});
    words.insert(words.begin(), "zev");
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());

    Screen screen;
    std::stringbuf input{std::string(answers), std::ios::in};
    const Redirection in(std::cin, input), out(std::cout, screen);
    std::cout.exceptions(std::ios::badbit);
    int exitCode = 0;
    try {
        exitCode = runDriver(static_cast<int>(argv.size()), argv.data());
    } catch (const Endless&) {
    }
    std::cout.exceptions(std::ios::goodbit);
    for (const LanguageTexts& language : setup.languages)
        std::remove((setup.documentStem + language.code + ".text").c_str());
    return {withoutAddresses(screen.str()), log.read(), printer.printed, exitCode};
}

void checkRecord(const test::Sandbox& sandbox, const SessionSetup& setup) {
    require(sandbox.read("status/license/status.dat").ends_with("\nStatus=9\n"), "an acceptance is recorded");
    require(sandbox.read("status/license/English.txt") == "en agreement\none\ntwo\n\nfour\n", "there are copies");
    const SessionTraces again = play(sandbox, setup, "");
    require(again.exitCode == 9 && again.screen.empty(), "an acceptance is remembered");
}

void checkSession(Input input) {
    static const Licenses without(false), with(true);
    const unsigned first = input.byte(), second = input.byte();
    const Licenses& licenses = (first & 0x10) != 0 ? with : without;
    const SessionSetup setup{.height = 1 + static_cast<int>(first & 0xF),
                             .echoesInput = (first & 0x20) != 0,
                             .lpWorks = (second & 1) != 0,
                             .lprWorks = (second & 2) != 0,
                             .documentStem = documentStem,
                             .terms = licenses.terms,
                             .languages = licenses.languages((second & 4) != 0 ? "fr" : "en")};

    SessionTraces expected = SessionModel(setup, input.rest()).run();
    expected.screen = withoutAddresses(expected.screen);
    const SessionTraces traces = play(licenses.sandbox, setup, input.rest());
    if (expected.exitCode == 0) {
        // zev and the model were ended at different moments.
        require(expected.screen.starts_with(traces.screen), "an endless session goes on as expected");
        require(expected.log.starts_with(traces.log), "an endless session has the answers that were given");
    } else {
        requireEqual(traces.screen, expected.screen, "the screen is the model's");
        requireEqual(traces.log, expected.log, "the command log is the model's");
    }
    requireEqual(traces.printed, expected.printed, "what is printed is the model's");
    require(traces.exitCode == expected.exitCode, "the exit code is the model's");
    if (traces.exitCode == 9) {
        checkRecord(licenses.sandbox, setup);
    } else {
        require(!licenses.sandbox.has("status/license"), "nothing is recorded");
    }
    licenses.sandbox.remove("status");
}

}  // namespace
}  // namespace zev::fuzz

extern "C" int system(const char* command) { return zev::fuzz::printer.run(command); }

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    zev::fuzz::checkSession({data, size});
    return 0;
}
