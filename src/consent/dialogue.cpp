#include "consent/dialogue.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <vector>

#include "app/exit_code.h"
#include "app/run_context.h"
#include "consent/legibility.h"
#include "console/dialog_run.h"
#include "console/license_dialog.h"
#include "console/screens.h"
#include "console/terminal_columns.h"
#include "lang/environment_locale.h"
#include "lang/language_table.h"
#include "lang/locale_choice.h"
#include "lang/resource_factory.h"

namespace zev {

namespace {

std::ostream& operator<<(std::ostream& out, const icu::UnicodeString& text) {
    return out << InCodePage{{text.getBuffer(), static_cast<std::size_t>(text.length())}};
}

icu::UnicodeString fromUtf8(const std::string& text) { return icu::UnicodeString::fromUTF8(text); }

/// The name of a language in that language, or in English if the terminal cannot show it.
icu::UnicodeString nameOf(const LanguageEntry& language) {
    const icu::UnicodeString own = createResource(language.code, true)->LANGNAME_KEY().unescape();
    return isLegible(own) ? own : fromUtf8(language.englishName);
}

/// The languages that have a text of their own and can be shown. Traditional Chinese is recorded and never shown.
std::vector<LanguageEntry> shownLanguages(const RunContext& context, const Terms& terms) {
    std::vector<LanguageEntry> languages;
    for (const LanguageEntry& language : languagesOfSet(context.languageSet)) {
        const bool isShown = std::string_view(matchLanguage(context, language.code)) == language.code;
        if (isShown && terms.languageOfText(language.code) == language.code) languages.push_back(language);
    }
    return languages;
}

/// The index of the language that an answer names, by its number or its code; `languages.size()` if it names none.
std::size_t indexNamed(const std::string& answer, const std::vector<LanguageEntry>& languages) {
    const auto byCode = std::ranges::find(languages, answer, &LanguageEntry::code);
    if (byCode != languages.end()) return static_cast<std::size_t>(byCode - languages.begin());
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(answer.data(), answer.data() + answer.size(), number);
    const bool isNumber = error == std::errc() && end == answer.data() + answer.size();
    return isNumber && number >= 1 && number <= languages.size() ? number - 1 : languages.size();
}

std::string trimmed(const std::string& text) {
    const auto begin = text.find_first_not_of(" \t");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

}  // namespace

Dialogue::Dialogue(Terminal& terminal, RunContext& context, const Subject& subject)
    : terminal_(terminal), context_(context), subject_(subject) {}

void Dialogue::chooseLanguage() {
    const StandardStreamsOn streams(terminal_);
    const auto languages = shownLanguages(context_, subject_.terms);
    if (languages.size() < 2) return;
    const std::string current = subject_.terms.languageOfText(context_.resource->getLanguageCode());
    std::size_t chosen = indexNamed(current, languages);
    if (chosen == languages.size()) chosen = 0;
    for (std::size_t i = 0; i < languages.size(); ++i) {
        std::cout << (i < 9 ? " " : "") << i + 1 << ". " << nameOf(languages[i]) << '\n';
    }
    const std::size_t proposed = chosen;
    std::string answer;
    do {
        if (!answer.empty()) {
            std::cout << "Please enter a number from 1 to " << languages.size() << ", or a code such as "
                      << languages[proposed].code << ".\n";
        }
        std::cout << "1-" << languages.size() << " [" << proposed + 1 << " " << nameOf(languages[proposed]) << "]: ";
        std::cout.flush();
        std::getline(std::cin, answer);
        answer = trimmed(answer);
        chosen = answer.empty() ? proposed : indexNamed(answer, languages);
    } while (chosen == languages.size());
    if (languages[chosen].code != current) {
        static_cast<void>(setLocale(context_, icu::Locale(languages[chosen].code)));
    }
}

bool Dialogue::isLegibleIn(const std::string& code, std::string& problem) const {
    const auto resource = createResource(code.c_str(), true);
    const icu::UnicodeString prompts = resource->CLICONTMSG_KEY().unescape() + resource->CLIACCMSG_KEY().unescape() +
                                       resource->CLICFMMSG_KEY().unescape();
    if (writesAscii() && readsCatalogues() && isLegible(subject_.terms.text(code)) && isLegible(prompts)) return true;
    problem = std::string("the code page ") + codePageName() + " of the locale " + environmentLocale() +
              " cannot show the terms in the language " + code +
              "; set LC_ALL=C.UTF-8 or a locale of that language, or name another language with --lang.";
    return false;
}

/// The height for which pages are laid out, such that every page has a line of text, in English and for the terms of
/// other parties too. On a screen with room for the prompt alone, this is a lower height, at which the text is one
/// page.
int32_t Dialogue::heightOfPages(ScreenSize size) const {
    const auto isWithoutText = [&](int32_t height) {
        RunContext own = createRunContext(context_.licenseDir, context_.statusDir, context_.languageSet);
        static_cast<void>(setLocale(own, context_.locale));
        LicenseDialog dialog(own, {size.width, height});
        const auto hasNoLines = [&] {
            const auto screens = Screens::layOut(dialog, u".");
            return screens && screens->pageLines() == 0;
        };
        return textLinesPerPage(height, 0) == 0 || hasNoLines() || (toggleLanguage(dialog) && hasNoLines());
    };
    int32_t height = std::max(size.height, 1);
    while (height > 1 && isWithoutText(height)) --height;
    return height;
}

/// Says that the terms have changed. Returns how many lines that takes.
int32_t Dialogue::showNotice(const ScreenSize& size) const {
    if (!subject_.accepted) return 0;
    const Fields& last = *subject_.accepted;
    const auto field = [&](const char* name) {
        const auto found = last.find(name);
        return found != last.end() ? printableText(found->second) : "-";
    };
    constexpr std::size_t dateSize = 10;
    const icu::UnicodeString notice =
        fromUtf8(subject_.product + " " + subject_.version + ": the terms have changed since " + field("version") +
                 " (accepted " + field("accepted").substr(0, dateSize) + " by " + field("who") + ").");
    const StandardStreamsOn streams(terminal_);
    std::cout << notice << "\n\n" << std::flush;
    const int64_t columns = terminalColumns(notice);
    return 1 + static_cast<int32_t>((columns + size.width - 1) / size.width);
}

Answer Dialogue::ask(std::string& problem) {
    for (const std::string& code : {std::string(context_.resource->getLanguageCode()), std::string("en")}) {
        if (!isLegibleIn(code, problem)) return Answer::impossible;
    }
    ScreenSize size = terminal_.size();
    size.height -= showNotice(size);
    size.height = heightOfPages(size);

    terminal_.discardTypeAhead();
    const StandardStreamsOn streams(terminal_);
    switch (const int code = runLicenseDialog(context_, size); code) {
        case exit_code::accepted: return Answer::accepted;
        case exit_code::declined: return Answer::declined;
        default:
            problem = code == exit_code::noLayout ? "the text of the terms is empty or cannot be laid out."
                                                  : "the text of the terms cannot be shown.";
            return Answer::impossible;
    }
}

}  // namespace zev
