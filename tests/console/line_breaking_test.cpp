#include "console/line_breaking.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "app/run_options.h"
#include "console/terminal_columns.h"
#include "fuzz/plain_breaking.h"
#include "lang/environment_locale.h"
#include "lang/locale_choice.h"

namespace zev::test {
namespace {

std::string adopt(const std::string& language) {
    setenv("LC_ALL", (language + ".UTF-8").c_str(), 1);
    adoptEnvironmentLocale();
    return ".";
}

/// A dialogue in one language.
struct Speaker {
    explicit Speaker(const std::string& language)
        : context(createRunContext(adopt(language), ".", 4)), dialog(context) {}

    /// The lines of a text as they are shown, each with its line feed.
    [[nodiscard]] std::string lines(const icu::UnicodeString& text, int32_t width) const {
        std::ostringstream shown;
        const auto broken = breakText(dialog, text, width);
        for (std::size_t index = 0; index < broken->size(); ++index) shown << InCodePage{(*broken)[index]};
        return shown.str();
    }

    RunContext context;
    LicenseDialog dialog;
};

TEST(LineBreaking, countsEastAsianTextDoubleButCutsInCodeUnits) {
    for (const char* language : {"ja_JP", "ko_KR", "zh_TW", "zh"}) {
        const Speaker speaker(language);
        EXPECT_EQ(displayWidth(speaker.dialog, u"a\x7F\x80\U0001F600｡"), 1 + 1 + 2 + 4 + 2) << language;
        EXPECT_EQ(breakText(speaker.dialog, {50, U'字', 50}, 80)->operator[](0).size(), 39 + 1U) << "78 columns";
        // Six letters are too wide and are cut after ten units, in the next word. If the rest of that word is too wide
        // too, the text starts over from the break before it.
        EXPECT_EQ(speaker.lines(u"абвгде жзик", 10), "абвгде жзи\nк\n");
        EXPECT_EQ(speaker.lines(u"абвгде жзиклмнопрст", 10), "абвгде жзи\n\nжзиклмнопр\nст\n");
        EXPECT_EQ(breakText(speaker.dialog, u"абвгд\nя", 10)->size(), 1U) << "cut past a line feed and the end";
    }
    EXPECT_EQ(displayWidth(Speaker("el").dialog, u"aλ\U0001F600"), 4);
}

TEST(LineBreaking, followsTheLocaleOfTheDialogueAndMeasuresByThatOfTheContext) {
    Speaker speaker("ja");
    EXPECT_EQ(speaker.lines(u"許使ァ", 5), "許使\nァ\n");
    speaker.dialog.currentLocale = &speaker.dialog.englishLocale;
    EXPECT_EQ(speaker.lines(u"許使ァ", 5), "許\n使ァ\n");

    icu::Locale phrases("ja@lw=phrase");
    speaker.dialog.currentLocale = &phrases;
    const icu::UnicodeString text(u"使用許諾契約は、日本語の文章を文節で折り返す。");
    EXPECT_EQ(*breakText(speaker.dialog, text, 20), breakPlainly(speaker.dialog, text, 20)) << "breaks of another kind";
}

TEST(LineBreaking, givesExactlyTheLinesOfThePlainAlgorithm) {
    const icu::UnicodeString alphabets[]{
        u"ab -\n",   u"word \n\r\t/.,(\"", u"字、「か゚ー a",  u"абв г\nд",
        u"กขค าะ\n", u"한국 어\n",         u"10th ,-%(\r\n", u"\U0001F600é \u00AD\u200B\u00A0\n"};
    std::mt19937 random(20260101);
    const auto upTo = [&](int32_t most) { return std::uniform_int_distribution<int32_t>(0, most)(random); };
    for (const char* language : {"en_US", "fr", "ja_JP", "ko", "zh_TW"}) {
        const Speaker speaker(language);
        for (int round = 0; round < 400; ++round) {
            const auto& alphabet = alphabets[upTo(int32_t{std::size(alphabets)} - 1)];
            const int32_t length = 1 + upTo(200), longestRun = upTo(40);
            icu::UnicodeString text;
            while (text.length() < length) {
                // Runs of one unit make words of every length.
                const char16_t unit = alphabet[upTo(alphabet.length() - 1)];
                for (int32_t run = upTo(longestRun); run >= 0; --run) text.append(unit);
            }
            for (int32_t width = 1; width <= 90; width += 1 + upTo(8)) {
                const auto lines = breakText(speaker.dialog, text, width);
                ASSERT_EQ(*lines, breakPlainly(speaker.dialog, text, width)) << language << " at " << width;
            }
        }
    }
}

TEST(TerminalColumns, areThoseOfATerminalAndNotThoseOfTheDialogue) {
    const std::pair<const char16_t*, int64_t> rows[]{
        {u"", 0},   {u"\t", 8},   {u"1234567\t", 8},       {u"12345678\tx", 17}, {u"\t\tx\n\t", 17},
        {u"｡ｱ", 2}, {u"字。", 4}, {u"e\u0301\u200B\r", 1}, {u"\U0001F600é", 3},  {u"字字字字\t", 16},
    };
    for (const auto& [line, columns] : rows) EXPECT_EQ(terminalColumns(icu::UnicodeString(line)), columns) << columns;
}

}  // namespace
}  // namespace zev::test
