#include <gmock/gmock.h>

#include <algorithm>

#include "lang/resource_factory.h"
#include "support/session.h"

namespace zev::test {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

/// An English agreement of the lines 1 to 30, on a screen of 300 columns, on which every prompt takes one line, and of
/// 14 lines, of which ten are left for text.
class Dialogue : public testing::Test {
protected:
    void SetUp() override {
        sandbox.write("licenses/LA_en", utf16(numbered(30)));
        sandbox.write("licenses/LI_en", "");
    }

    static std::u16string numbered(int last) {
        const std::string text = page(1, last, 0);
        return {text.begin(), text.end()};
    }
    static std::string page(int first, int last, int empty) {
        std::string text;
        for (int i = first; i <= last; ++i) text += std::to_string(i) + "\n";
        return text + std::string(static_cast<std::size_t>(empty), '\n');
    }

    /// A text of a catalogue as it is shown, without its last code units.
    static std::string shown(const icu::UnicodeString& text, int32_t cut = 0) {
        std::string bytes;
        const auto letters = text.unescape();
        return letters.tempSubString(0, letters.length() - cut).toUTF8String(bytes);
    }

    /// A session that does not find what an earlier one recorded.
    Finished answer(const std::string& input, Environment environment = {}) const {
        environment.insert({{"COLUMNS", "300"}, {"LINES", "14"}, {"LC_ALL", "en_US.UTF-8"}});
        sandbox.remove("status");
        return run(sandbox.arguments(), environment, input);
    }

    const Sandbox sandbox;
    const std::unique_ptr<Resource> english = createResource("en", false);
    const std::string prompt = "\n\n" + shown(english->CLICONTMSG_KEY(), 2) + ", \"3\" Print.\n[INPUT] ==> ";
    const std::string endPrompt = "\n\n" + shown(english->CLIACCMSG_KEY()) + "[INPUT] ==> ";
    const std::string confirmation = shown(english->CLICFMMSG_KEY()) + "\n[INPUT] ==> ";
};

TEST_F(Dialogue, pagesForwardAndBack) {
    sandbox.write("licenses/LA_en", utf16(numbered(25)));
    const std::string one = page(1, 10, 0) + prompt;
    EXPECT_EQ(answer("\n\n\n\n99\n99\n99\n99\n1\n").out,
              one + "\n" + page(11, 20, 0) + prompt + "\n" + page(21, 25, 5) + endPrompt + "\n" + endPrompt + "\n" +
                  endPrompt + "99\n" +  // nothing was left to show, so the page before is the last ten lines
                  page(16, 25, 0) + endPrompt + "99\n" + page(6, 15, 0) + prompt + "99\n" + one + "99\n" + one + "1\n");
}

TEST_F(Dialogue, padsPagesExceptOnAScreenThatIsTooLowForAnyText) {
    const std::pair<const char*, std::string> rows[]{
        {"24", page(1, 20, 0) + prompt + "\n" + page(21, 30, 10) + endPrompt},
        {"44", page(1, 30, 10) + endPrompt + "\n" + endPrompt},
        {"4", prompt + "\n" + prompt},  // a page with room for no lines
        {"3", page(1, 30, 0) + endPrompt + "\n" + endPrompt},
        {"1", page(1, 30, 0) + endPrompt + "\n" + endPrompt},
    };
    for (const auto& [lines, out] : rows) EXPECT_EQ(answer("\n1\n", {{"LINES", lines}}).out, out + "1\n") << lines;
}

TEST_F(Dialogue, asksOnTheLastScreenLineUnderEveryPage) {
    sandbox.write("licenses/LA_fr", utf16(numbered(30)));
    sandbox.write("licenses/LI_fr", "");
    for (const char* language : {"en", "fr"}) {  // in one the end prompt is longer, in the other not
        const auto out = answer("\n1\n", {{"COLUMNS", "60"}, {"LINES", "24"}, {"LC_ALL", language}}).out;
        const auto linesAbove = [&](std::size_t mark) { return std::ranges::count(out.substr(0, mark), '\n'); };
        EXPECT_EQ(linesAbove(out.find("[INPUT]")), 24 - 1);
        EXPECT_EQ(linesAbove(out.rfind("[INPUT]")), 2 * 24 - 1);
    }
}

TEST_F(Dialogue, repeatsThePromptForWhatItDoesNotKnow) {
    const Finished finished = answer("0\nabc\n5\n4\n -7x\n4294967297\n");
    EXPECT_EQ(finished.exitCode, 9) << "the last number wraps to 1";
    EXPECT_EQ(finished.out, page(1, 10, 0) + prompt + "0\n" + prompt + "abc\n" + prompt + "5\n" + prompt + "4\n" +
                                prompt + " -7x\n" + prompt + "4294967297\n");
}

TEST_F(Dialogue, asksTwiceBeforeItDeclines) {
    const std::string two = page(11, 20, 0) + prompt;
    const Finished finished = answer("\n2x\n 2\n2 \n\n2\n2\n");
    EXPECT_EQ(finished.exitCode, 3);
    EXPECT_EQ(finished.out, page(1, 10, 0) + prompt + "\n" + two + "2x\n" + confirmation + " 2\n" + confirmation +
                                "2 \n" + confirmation + "\n" + two + "2\n" + confirmation + "2\n");
    EXPECT_EQ(answer("2\n1\n").exitCode, 9);
}

TEST_F(Dialogue, repeatsItsPromptWithoutEndOnceInputHasFailed) {
    const std::string longLine = "0" + std::string(79, ' ');
    for (const std::string& last : {std::string("\x04"), longLine}) {
        Terminal terminal(24, 80, sandbox.arguments({"-cmdlog", sandbox.path("log")}), {});
        terminal.answer("Press Enter", "-1");
        terminal.type(last + "\n1\n1");
        for (int i = 0; i < 5; ++i) terminal.waitFor("You have completed");
        const std::string kept = last == longLine ? longLine.substr(0, 79) + "\n" : "";
        EXPECT_THAT(sandbox.read("log"), StartsWith("-1\n" + kept + "\n\n\n\n"));
    }
}

TEST_F(Dialogue, pagesThroughTheTermsOfOthers) {
    sandbox.write("licenses/non_vur_license", utf16(numbered(13) + std::u16string(302, 'x') + u"\n"));
    const std::string more = "\n\n-- More, \"q\" to quit --\n[INPUT] ==> ";
    const std::string wide = std::string(300, 'x') + "\nxx\n";
    std::string longer = prompt;
    longer.replace(longer.find("Print."), 6, "Print, \"4\" Read non-VUR terms.");
    const std::string two = page(11, 20, 0) + longer;
    EXPECT_EQ(answer("\n4\n\n q\nQuit\n1\n").out, page(1, 10, 0) + longer + "\n" + two + "4\n" + page(1, 11, 0) + more +
                                                      "\n" + page(12, 13, 0) + wide + page(1, 0, 7) + more + " q\n" +
                                                      page(1, 0, 11) + more + "Quit\n" + two + "1\n");
    EXPECT_THAT(answer("4\n\nq\n1\n", {{"LINES", "2"}}).out,
                HasSubstr(page(1, 13, 0) + wide + more + "\n" + more + "q\n"));
}

TEST_F(Dialogue, switchesToEnglishAndBack) {
    const std::string trace = sandbox.path("trace");
    Terminal terminal(24, 200, sandbox.arguments({"-debug", trace}), {{"LC_ALL", "fr_FR.UTF-8"}});
    terminal.answer("fr agreement\nfr information\n", "5");
    terminal.waitFor("1\n2\n3\n");
    terminal.answer(", \"5\" Français.\n", "5");
    terminal.waitFor("fr agreement\n");
    // Without English the language stays, and the dialogue restarts all the same.
    sandbox.remove("licenses/LA_en");
    terminal.type("5");
    terminal.waitFor("fr agreement\n");
    sandbox.remove("licenses/LA_fr");
    terminal.type("5");
    const Finished finished = terminal.finish();
    EXPECT_EQ(finished.exitCode, 11);
    EXPECT_THAT(finished.out, testing::EndsWith("Exited with: 11\n"));
    EXPECT_THAT(finished.out, testing::Not(HasSubstr("[INPUT]"))) << "a terminal shows answers by itself";
    EXPECT_THAT(sandbox.read("trace"),
                AllOf(HasSubstr("DEBUG: Could not set locale, license not available for language en\n"),
                      HasSubstr("DEBUG: Could not set locale, license not available for language fr\n")));
}

TEST_F(Dialogue, speaksTheLettersOfEveryLanguage) {
    sandbox.write("licenses/non_vur_license", "");
    for (const auto& [name, englishName] : languages()) {
        const std::string code = name;
        if (code == "en" || code == "zh_TW") continue;  // en is shown above, and zh_TW is never shown
        const auto texts = createResource(name, false);
        const auto out = answer("\n2\n2\n", {{"COLUMNS", "1000"}, {"LINES", "5"}, {"LC_ALL", code + ".UTF-8"}}).out;
        EXPECT_EQ(out, code + " agreement\n\n\n" + shown(texts->CLICONTMSG_KEY(), 2) + ", \"3\" " +
                           shown(texts->PRINT_KEY()) + ", \"4\" " + shown(texts->NONVURTERMS_KEY()) +
                           ", \"5\" English.\n[INPUT] ==> \n" + code + " information\n\n\n" +
                           shown(texts->CLIACCMSG_KEY()) + "[INPUT] ==> 2\n" + shown(texts->CLICFMMSG_KEY()) +
                           "\n[INPUT] ==> 2\n");
    }
}

}  // namespace zev::test
