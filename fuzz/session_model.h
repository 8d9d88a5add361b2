#pragma once

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace zev::fuzz {

using Lines = std::vector<std::string>;

/// What a dialogue shows in one language. The screen is so wide that each prompt takes one line.
struct LanguageTexts {
    std::string code;
    Lines license;
    std::string continuePrompt;
    std::string endPrompt;
    std::string confirmation;
};

struct SessionSetup {
    int height;        ///< lines
    bool echoesInput;  ///< answers do not come from a terminal
    bool lpWorks;
    bool lprWorks;
    std::string documentStem;              ///< the path of the document for the printer, up to the language
    Lines terms;                           ///< of other parties; empty if there is no such file
    std::vector<LanguageTexts> languages;  ///< the chosen one and, if that is not English, English
};

/// What a session leaves, and its exit code, which is 0 if it repeats its prompt for ever.
struct SessionTraces {
    std::string screen;
    std::string log;
    std::string printed;  ///< each print command, and the document that it was given
    int exitCode = 0;
};

/// The rules of the dialogue, in the plainest form.
class SessionModel {
public:
    SessionModel(const SessionSetup& setup, std::string_view answers) : setup_(setup), answers_(answers) {}

    /// An endless session is followed for a dozen answers.
    SessionTraces run() {
        for (std::size_t language = 0; !converse(setup_.languages[language]);) language = 1 - language;
        return traces_;
    }

private:
    [[nodiscard]] bool isEndless() const { return answersWithoutInput_ > 12; }

    /// False if the session goes on in the other language.
    bool converse(const LanguageTexts& texts) {
        const int room = setup_.height - 4;
        std::size_t start = 0, end = 0;
        const auto show = [&] {
            end = start + writePage(texts.license, start, room);
            if (end > start) fillPage(room, end - start);
        };
        show();
        while (!isEndless()) {
            traces_.screen += "\n\n" + (end == texts.license.size() ? texts.endPrompt : texts.continuePrompt);
            const std::string text = answer();
            const int choice = static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
            if (choice == 1) return finish(9);
            if (choice == 2) {
                if (const int exitCode = confirm(texts)) return finish(exitCode);
            }
            if (choice == 3) print(texts);
            if (choice == 4 && !setup_.terms.empty()) readTerms();
            if (choice == 5 && setup_.languages.size() > 1) return false;
            if (choice == 99) start = room < 0 ? 0 : start - std::min(start, static_cast<std::size_t>(room));
            if (text.empty()) start = end;
            if (text.empty() || choice == 2 || (choice == 4 && !setup_.terms.empty()) || choice == 99) show();
        }
        return true;
    }

    bool finish(int exitCode) {
        traces_.exitCode = exitCode;
        return true;
    }

    /// The exit code of a decision, or 0 to read on.
    int confirm(const LanguageTexts& texts) {
        for (;;) {
            traces_.screen += texts.confirmation + "\n";
            const std::string text = answer();
            if (text == "2") return 3;
            if (text == "1") return 9;
            if (text.empty()) return 0;
        }
    }

    void print(const LanguageTexts& texts) {
        const std::string path = setup_.documentStem + texts.code + ".text";
        for (const auto& [command, works] : {std::pair("lp", setup_.lpWorks), {"lpr", setup_.lprWorks}}) {
            traces_.printed += std::string(command) + " " + path + " >/dev/null 2>&1\n";
            for (const std::string& line : texts.license) traces_.printed += line;
            if (!setup_.terms.empty()) traces_.printed += "\n";
            for (const std::string& line : setup_.terms) traces_.printed += line;
            if (works) return;
        }
        traces_.screen += "0x\n";  // an address
    }

    void readTerms() {
        const int room = setup_.height - 3;
        std::size_t next = 0;
        std::string text;
        do {
            const std::size_t shown = writePage(setup_.terms, next, room);
            next += shown;
            fillPage(room, shown);
            traces_.screen += "\n\n-- More, \"q\" to quit --\n";
            text = answer();
        } while (!isEndless() && !text.starts_with('q') && !text.starts_with('Q'));
    }

    /// Returns how many lines were written. A negative room stands for room for all of them.
    std::size_t writePage(const Lines& lines, std::size_t start, int room) {
        std::size_t shown = lines.size() - start;
        if (room >= 0) shown = std::min(shown, static_cast<std::size_t>(room));
        for (std::size_t i = 0; i < shown; ++i) traces_.screen += lines[start + i];
        return shown;
    }

    void fillPage(int room, std::size_t shown) {
        if (room >= 0) traces_.screen.append(static_cast<std::size_t>(room) - shown, '\n');
    }

    /// An answer has at most 79 bytes. After a longer one, and after the end of input, every answer is empty.
    std::string answer() {
        const std::string_view line = answers_.substr(0, answers_.find('\n'));
        const bool isLast = line.size() > 79 || line.size() == answers_.size();
        if (answers_.empty()) ++answersWithoutInput_;
        answers_ = isLast ? "" : answers_.substr(line.size() + 1);
        const std::string text = std::string(line.substr(0, 79)).c_str();
        if (setup_.echoesInput) traces_.screen += "[INPUT] ==> " + text + "\n";
        traces_.log += text + "\n";
        return text;
    }

    const SessionSetup& setup_;
    std::string_view answers_;
    int answersWithoutInput_ = 0;
    SessionTraces traces_;
};

}  // namespace zev::fuzz
