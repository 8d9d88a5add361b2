#include "files/encoded_text_file.h"

#include <gtest/gtest.h>

#include "app/run_context.h"
#include "app/run_options.h"
#include "lang/resource.h"
#include "support/sandbox.h"

namespace zev::test {

TEST(EncodedTextFile, countsAndReadsCodeUnitsUpToTheEndMark) {
    using namespace std::string_literals;
    const std::u16string block(4096, u'x');
    const std::pair<std::string, std::u16string> rows[]{
        {"", u""},
        {"\xFE\xFF", u""},
        {"\xFE\xFF\0A\x20\xAC"s, u"A€"},
        {"\xFF\xFE\x41\0\xAC\x20"s, u"A€"},
        {"\0A\0\n"s, u"A\n"},  // big-endian without a mark, always
        {"A\0"s, u"\u4100"},
        {utf16(u"\U0001F600"), u"\U0001F600"},
        {utf16(u"a\0b"s), u"a\0b"s},
        {utf16(u"ab\xFFFFzz"), u"ab"},
        {utf16(block + u"\xFFFFy"), block},
        {utf16(block + block + u"z\xFFFFy"), block + block + u"z"},
    };
    const Sandbox sandbox;
    const RunContext context("", "", defaultLanguageSet);
    std::size_t count = 99;
    EXPECT_FALSE(countFileChars(sandbox.path("text"), "UTF-16", count));
    for (const auto& [bytes, expected] : rows) {
        sandbox.write("text", bytes);
        EXPECT_TRUE(countFileChars(sandbox.path("text"), "UTF-16", count));
        EXPECT_EQ(count, expected.size());
        std::u16string text(count, u'?');
        EXPECT_EQ(readLicenseFile(context, sandbox.path("text"), text), count);
        EXPECT_EQ(text, expected);
    }
    EXPECT_FALSE(countFileChars(sandbox.path("text"), "no-such-code-page", count));

    std::u16string small(5, u'?');
    EXPECT_EQ(readLicenseFile(context, sandbox.path("text"), std::span(small).first(3)), 4U) << "it does not fit";
    EXPECT_EQ(small, u"?????");
}

TEST(EncodedTextFile, copiesBlindlyOnceBothFilesAreOpen) {
    const Sandbox sandbox;
    const std::string in = sandbox.path("licenses/LA_en"), out = sandbox.path("out");
    EXPECT_TRUE(copyFileConverted(in.c_str(), "UTF-16", out.c_str(), "UTF-8"));
    EXPECT_EQ(sandbox.read("out"), "en agreement\n");
    EXPECT_TRUE(copyFileConverted(in.c_str(), "UTF-16", "/dev/full", "UTF-8"));
    EXPECT_FALSE(copyFileConverted(in.c_str(), "UTF-16", "/no/such/out", "UTF-8"));
    EXPECT_FALSE(copyFileConverted("/no/such/in", "UTF-16", out.c_str(), "UTF-8"));
    EXPECT_EQ(sandbox.read("out"), "") << "an empty output stays behind";
}

TEST(EncodedTextFile, createsDirectoriesFromTheLeft) {
    const Sandbox sandbox;
    EXPECT_TRUE(makeDirectoryPath(sandbox.path("a//b/c/")));
    EXPECT_TRUE(sandbox.has("a/b/c"));
    EXPECT_EQ(std::filesystem::status(sandbox.path("a/b")).permissions() & std::filesystem::perms(07027),
              std::filesystem::perms::none);
    EXPECT_TRUE(makeDirectory(sandbox.path("licenses/LA_en"))) << "whatever has the name counts";
    EXPECT_FALSE(makeDirectoryPath(sandbox.path("licenses/LA_en/x/y")));
}

}  // namespace zev::test
