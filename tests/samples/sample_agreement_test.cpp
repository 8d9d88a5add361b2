#include <gtest/gtest.h>
#include <unicode/regex.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace zev::test {

std::vector<std::string> linesOf(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

/// What `pattern` finds in a line, in order.
std::vector<std::string> findAll(const icu::UnicodeString& pattern, const std::string& line) {
    std::vector<std::string> found;
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString input = icu::UnicodeString::fromUTF8(line);
    icu::RegexMatcher matcher(pattern, input, 0, status);
    while (matcher.find(status)) matcher.group(status).toUTF8String(found.emplace_back());
    EXPECT_TRUE(U_SUCCESS(status));
    return found;
}

/// How a line begins: with the number of a clause, an item, which each alphabet letters in its own way, or a row.
std::string beginningOf(const std::string& line, const std::string& text) {
    const icu::UnicodeString letters = text == "LA_el" ? u"αβγ" : text == "LA_ru" ? u"абв" : u"abc";
    const auto found = findAll(u"^(\\d\\.|\\(\\p{L}\\)| +)", line);
    if (found.empty()) return "";
    const auto item = letters.indexOf(icu::UnicodeString::fromUTF8(found.front()).charAt(1));
    return item < 0 ? found.front() : "item " + std::to_string(item + 1);
}

TEST(SampleAgreement, hasTheSameClausesAndFactsInEveryLanguage) {
    const icu::UnicodeString facts =
        u"https\\S*html|\\w+@\\w+.\\w+|\\w\\S*/\\*\\.\\w+|\\d[\\d.]*\\d|Harbour Ledger( license)?|VUR|TEST|"
        u"Tidegauge Parser|Northquay Cooperative|Lanternsort|Brisk Otter Works|Pebble Figures|Ilse Marrow";
    int languages = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ZEV_SAMPLE_TEXTS)) {
        const std::string text = entry.path().stem().string(), kind = text.substr(0, 3);
        if (kind != "LA_" && kind != "LI_") continue;
        ++languages;
        const auto lines = linesOf(entry), english = linesOf(ZEV_SAMPLE_TEXTS "/" + kind + "en.txt");
        ASSERT_EQ(lines.size(), english.size()) << entry;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            SCOPED_TRACE(testing::Message() << entry << " line " << i + 1 << ": " << lines[i]);
            EXPECT_EQ(lines[i].empty(), english[i].empty());
            EXPECT_EQ(beginningOf(lines[i], text), beginningOf(english[i], "LA_en"));
            for (const auto& fact : findAll(facts, english[i])) EXPECT_NE(lines[i].find(fact), lines[i].npos) << fact;
        }
    }
    EXPECT_EQ(languages, 2 * 17);
}

}  // namespace zev::test
