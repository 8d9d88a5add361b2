#include "consent/ask.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <optional>
#include <utility>

#include "app/start_process.h"
#include "consent/call_words.h"
#include "consent/command_lines.h"
#include "consent/dialogue.h"
#include "consent/legibility.h"
#include "consent/person.h"
#include "consent/record_writer.h"
#include "consent/scratch.h"
#include "consent/store.h"
#include "consent/terms.h"
#include "consent/way_out.h"
#include "files/directory_at.h"
#include "files/license_text_set.h"
#include "lang/environment_locale.h"
#include "lang/locale_choice.h"

namespace zev {

namespace {

void warn(const std::string& message) { std::cerr << "zev-ask: " << inCodePage(printableText(message)) << std::endl; }

int fail(const std::string& problem) {
    warn(problem);
    return ask_status::failed;
}

std::string shortened(const std::string& fingerprint) {
    constexpr std::size_t digits = 32;
    return fingerprint.substr(0, digits);
}

/// Whether the first digits of a fingerprint are those of these terms.
bool names(const std::string& digits, const Terms& terms) { return terms.fingerprint().starts_with(digits); }

/// A run that asks for an answer, after the call was found to be right.
class Run {
public:
    Run(AskCall call, const Terms& terms, std::string command)
        : call_(std::move(call)),
          terms_(terms),
          command_(std::move(command)),
          state_(call_.state, DirectoryUse::state, call_.product),
          master_(call_.master, DirectoryUse::master, call_.product) {}

    int answer() {
        std::string problem = state_.open();
        if (problem.empty() && hasMaster()) problem = master_.open();
        if (!problem.empty()) return fail(problem);
        if (state_.isOpen()) clearLeftovers(state_.descriptor());

        const Record own = state_.find(terms_.fingerprint());
        if (own.state == RecordState::whole) return acceptedBefore(own.fields);
        if (own.state != RecordState::absent) return fail(unusable(state_, own));
        const Record groups = hasMaster() ? master_.find(terms_.fingerprint()) : Record{};
        if (groups.state == RecordState::whole) return record("master", &groups.fields);
        if (groups.state != RecordState::absent) return fail(unusable(master_, groups));

        if (!call_.accept.empty()) return acceptBeforehand();
        const std::string why = whyNobody();
        return why.empty() ? converse() : nobody(why);
    }

private:
    [[nodiscard]] bool hasMaster() const { return !call_.master.empty(); }
    [[nodiscard]] std::string subject() const { return call_.product + " " + call_.version; }

    [[nodiscard]] std::string recordPath(const Store& store) const {
        return store.path() + "/" + call_.product + "/" + terms_.fingerprint();
    }

    [[nodiscard]] std::string unusable(const Store& store, const Record& record) const {
        return recordPath(store) + " is not a whole record (" + printableText(record.flaw) +
               "): look into it with zev-audit, and move it away.";
    }

    void report(const std::string& how) const {
        const std::string line = subject() + ": terms " + shortened(terms_.fingerprint()) + " accepted " + how + ": " +
                                 printableText(recordPath(state_));
        std::cout << inCodePage(line) << std::endl;
    }

    int acceptedBefore(const Fields& fields) {
        logVersion(fields);
        completeMaster();
        report(printableText(fields.at("accepted") + " by " + (fields.contains("who") ? fields.at("who") : "-")));
        return ask_status::accepted;
    }

    void logVersion(const Fields& fields) {
        const auto version = fields.find("version");
        if (version != fields.end() && version->second == call_.version) return;
        const std::string problem = state_.logVersion(terms_.fingerprint(), call_.version, effectivePerson());
        if (!problem.empty()) warn("version " + call_.version + " could not be logged: " + problem);
    }

    /// Copies the record to the master directory if it is missing there, because an earlier run may have failed to.
    void completeMaster() {
        if (!hasMaster()) return;
        std::string problem = master_.isOpen() ? "" : master_.create();
        if (problem.empty()) {
            clearLeftovers(master_.descriptor());
            const Record groups = master_.find(terms_.fingerprint());
            if (groups.state == RecordState::whole) return;
            problem = groups.state == RecordState::absent ? master_.publishCopy(state_, terms_.fingerprint())
                                                          : unusable(master_, groups);
        }
        if (!problem.empty()) {
            warn("recorded in " + state_.path() + ", but not in the master directory " + master_.path() + ": " +
                 problem);
        }
    }

    int acceptBeforehand() {
        if (isBareAssent(call_.accept)) {
            return sayWhatToDo("\"" + call_.accept + "\" does not say which text is accepted, and the terms of " +
                               subject() + " can change.");
        }
        if (call_.accept == acceptAny) return record("any", nullptr);
        if (names(call_.accept, terms_)) return record("fingerprint", nullptr);
        return sayWhatToDo("the terms of " + subject() + " are " + shortened(terms_.fingerprint()) + ", but " +
                           shortened(call_.accept) + " was accepted beforehand: they have changed, read them again.");
    }

    [[nodiscard]] int nobody(const std::string& why) const {
        return sayWhatToDo("nobody can be asked for the terms of " + subject() + ": " + why + ".");
    }

    [[nodiscard]] int sayWhatToDo(const std::string& problem) const {
        const std::string set = call_.languageSet == defaultLanguageSet ? "" : " --langset 3";
        warn(problem);
        std::cerr << "Read them:    " << shellWord(command_) << " --show -l " << shellWord(call_.licenses) << set
                  << "\nAccept them:  start the installation again with ZEV_ACCEPT=" << shortened(terms_.fingerprint())
                  << " in its environment (sudo ZEV_ACCEPT=... COMMAND)" << std::endl;
        return ask_status::nobody;
    }

    int converse() {
        Terminal terminal(call_.waitSeconds);
        if (!terminal.isOpen()) return nobody("there is no terminal");
        if (const std::string problem = enterScratch(); !problem.empty()) return fail(problem);
        RunContext context = contextOf(call_.language, call_.languageSet);
        const Subject about{terms_, call_.product, call_.version, state_.newestOther(terms_.fingerprint())};
        std::string problem;
        try {
            Dialogue dialogue(terminal, context, about);
            if (call_.choosesLanguage) dialogue.chooseLanguage();
            switch (dialogue.ask(problem)) {
                case Answer::impossible: return fail(problem);
                case Answer::declined:
                    giveTerminalBack();
                    std::cout << call_.product << ": declined." << std::endl;
                    return ask_status::declined;
                case Answer::accepted: break;
            }
        } catch (const NobodyAnswers& end) {
            terminal.discardOutput();
            giveTerminalBack();
            return nobody(end.why);
        }
        giveTerminalBack();
        const std::string prompts = context.resource->getLanguageCode();
        languages_ = {terms_.languageOfText(prompts), prompts};
        return record("dialogue", nullptr);
    }

    /// Makes the private directory for the terms and the record, and makes it the working directory.
    std::string enterScratch() {
        if (scratch_.directory.isOpen()) return "";
        // Another run that declined can remove a state directory that it made just as this one enters it.
        constexpr int attempts = 5;
        for (int attempt = 0; attempt < attempts && !scratch_.directory.isOpen(); ++attempt) {
            if (std::string problem = state_.create(); !problem.empty()) return problem;
            scratch_ = openScratch(state_.descriptor());
        }
        if (!scratch_.directory.isOpen()) return state_.path() + " cannot be written: " + scratch_.problem;
        if (fchdir(scratch_.directory.get()) == 0 && writeTerms(terms_)) return "";
        return "the terms cannot be copied to " + state_.path() + ": " + std::strerror(errno);
    }

    /// Makes and publishes the record. `groups` is the acceptance that is copied from the master directory, or null.
    int record(const std::string& mode, const Fields* groups) {
        std::string problem = enterScratch();
        const std::string now = currentTime();
        if (problem.empty() && now.empty()) problem = "the system does not tell the time, which a record needs.";
        if (!problem.empty()) return fail(problem);
        Fields fields = groups != nullptr ? *groups : newFields(mode, now);
        if (groups != nullptr) {
            fields["master"] = printableText(master_.path());
            fields["copied"] = now + " by " + effectivePerson();
        }
        fields["zev"] = runOptions.version.substr(1);
        problem = writeRecord(fields, terms_, call_.languageSet);
        adoptTerminalLocale();
        std::optional<Fields> earlier;
        if (problem.empty()) {
            problem = state_.publish(scratch_.directory.get(), recordDirectory, terms_.fingerprint(), earlier);
        }
        if (!problem.empty()) return fail("the acceptance cannot be recorded: " + problem);
        if (earlier) return acceptedBefore(*earlier);
        groups != nullptr ? logVersion(fields) : completeMaster();
        report("(" + mode + ")");
        return ask_status::accepted;
    }

    [[nodiscard]] Fields newFields(const std::string& mode, const std::string& now) const {
        Fields fields{{"product", call_.product},
                      {"version", call_.version},
                      {"terms", terms_.fingerprint()},
                      {"accepted", now},
                      {"who", effectivePerson()},
                      {"host", hostName()},
                      {"mode", mode},
                      {"language", languages_.first}};
        if (languages_.second != languages_.first) fields["prompts"] = languages_.second;
        if (const std::string login = loginPerson(); !login.empty()) fields["login"] = login;
        if (!call_.note.empty()) fields["note"] = call_.note;
        return fields;
    }

    const AskCall call_;
    const Terms& terms_;
    const std::string command_;
    Store state_, master_;
    Scratch scratch_;
    std::pair<std::string, std::string> languages_{"-", "-"};  ///< of the text and of the prompts that were shown
};

/// Makes the paths of a call absolute. Returns what is wrong with them, or nothing.
std::string settlePaths(AskCall& call) {
    const bool needsState = call.action == AskCall::Action::ask;
    if (call.state.empty() && needsState) call.state = defaultStateDirectory();
    if (call.state.empty() && needsState) return "HOME names no directory; name a state directory with -s.";
    for (std::string* path : {&call.licenses, &call.state, &call.master}) {
        if (path->empty()) continue;
        const std::string absolute = absolutePath(*path);
        if (absolute.empty()) return *path + " cannot be found: the working directory was removed.";
        *path = absolute;
        while (path->size() > 1 && path->ends_with('/')) path->pop_back();
    }
    return "";
}

int show(const AskCall& call, const Terms& terms) {
    RunContext context = createRunContext(call.licenses, "", call.languageSet);
    if (!call.language.empty()) static_cast<void>(setLocale(context, localeNamed(call.language)));
    std::string text = terms.textInUtf8(context.resource->getLanguageCode());
    if (const std::string others = terms.fileInUtf8(nonVurTermsName); !others.empty()) text += "\n" + others;
    if (writeAll(STDOUT_FILENO, text) || errno == EPIPE) return ask_status::accepted;
    return fail("the terms cannot be written to standard output.");
}

int act(AskCall call, const char* calledAs) {
    if (call.action == AskCall::Action::version) {
        std::cout << "zev-ask of zev " << runOptions.version.substr(1) << std::endl;
        return ask_status::accepted;
    }
    const std::string command = pathOfCommand(calledAs);
    std::string problem = settlePaths(call);
    if (!problem.empty()) return fail(problem);
    const Terms terms = Terms::read(call.licenses, call.languageSet, problem);
    if (!problem.empty()) return fail(problem);
    if (!call.expected.empty() && !names(call.expected, terms)) {
        return fail("these are not the terms of this product: " + call.licenses + " has " +
                    shortened(terms.fingerprint()) + ", but " + shortened(call.expected) + " is expected.");
    }
    switch (call.action) {
        case AskCall::Action::fingerprint:
            if (std::cout << terms.fingerprint() << std::endl) return ask_status::accepted;
            return fail("the fingerprint cannot be written to standard output.");
        case AskCall::Action::show: return show(call, terms);
        default: return Run(std::move(call), terms, command).answer();
    }
}

}  // namespace

int runAsk(int argc, char** argv) {
    constexpr mode_t othersMayRead = 022;
    startProcess();
    umask(othersMayRead);
    adoptTerminalLocale();
    catchSignals();
    int status = ask_status::failed;
    if (auto call = readAskCall(argc, argv, status)) status = act(std::move(*call), argv[0]);
    leave();
    return status;
}

}  // namespace zev
