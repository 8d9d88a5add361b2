#include "files/encoded_text_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "app/run_options.h"
#include "files/license_text_set.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "lang/locale_choice.h"
#include "support/session.h"

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
    const std::string path = sandbox.path("licenses/non_vur_license");
    const RunContext context = createRunContext(sandbox.path("licenses"), "", defaultLanguageSet);
    std::size_t count = 99;
    icu::UnicodeString loaded = u"left alone";
    EXPECT_FALSE(countFileChars(path, "UTF-16", count));
    EXPECT_FALSE(readNonVurText(context, loaded));
    EXPECT_EQ(loaded, u"left alone");
    for (const auto& [bytes, expected] : rows) {
        sandbox.write("licenses/non_vur_license", bytes);
        EXPECT_TRUE(countFileChars(path, "UTF-16", count));
        EXPECT_EQ(count, expected.size());
        std::u16string text(count, u'?');
        EXPECT_EQ(readLicenseFile(context, path, text), count);
        EXPECT_EQ(text, expected);
        EXPECT_TRUE(readNonVurText(context, loaded));
        EXPECT_EQ(loaded, expected.c_str()) << "a text ends at its first U+0000";
    }
    EXPECT_FALSE(countFileChars(path, "no-such-code-page", count));

    std::u16string small(5000, u'?');
    for (const std::size_t room : {3U, 5000U}) {
        EXPECT_EQ(small.find_first_not_of(u'?'), small.npos) << "a block that does not fit leaves it alone";
        EXPECT_EQ(readLicenseFile(context, path, std::span(small).first(room)), room + 1) << "it does not fit";
    }
}

TEST(EncodedTextFile, tellsAnErrorFromAnEndInEveryBlock) {
    for (const int blocksBefore : {0, 1, 40}) {
        int left = blocksBefore;
        const cookie_io_functions_t failing{[](void* blocks, char* bytes, std::size_t size) -> ssize_t {
                                                if ((*static_cast<int*>(blocks))-- == 0) return -1;
                                                std::fill_n(bytes, size, 'x');
                                                return static_cast<ssize_t>(size);
                                            },
                                            nullptr, nullptr, nullptr};
        const File input(fopencookie(&left, "r", failing)), output(std::tmpfile());
        const EncodedFile from(u_finit(input.get(), nullptr, licenseCodePage));
        EXPECT_FALSE(copyUnits(from.get(), attachEncoded(output.get(), "UTF-8").get())) << blocksBefore;
    }
}

TEST(EncodedTextFile, copiesAsIfUnitByUnit) {
    const Sandbox sandbox;
    sandbox.write("in", utf16(u"使用許諾 ÀŁя한국\n\U0001F600 ไทย हिन्दी\n使用 ÀŁя한국\n"));
    const std::string in = sandbox.path("in"), out = sandbox.path("out"), plain = sandbox.path("plain");
    for (const char* codePage : {"UTF-8", "UTF-16", "ISO-2022-KR", "ISO-2022-JP", "GB18030", "LMBCS-1", "SCSU",
                                 "ISCII,version=0", "BOCU-1", "HZ", "UTF-7", "ibm-1047"}) {
        EXPECT_TRUE(copyFileConverted(in.c_str(), "UTF-16", out.c_str(), codePage));
        UFILE* const from = u_fopen(in.c_str(), "r", nullptr, "UTF-16");
        UFILE* const to = u_fopen(plain.c_str(), "w", nullptr, codePage);
        for (UChar unit; (unit = u_fgetc(from)) != U_EOF;) u_fputc(unit, to);
        u_fclose(from);
        u_fclose(to);
        EXPECT_EQ(sandbox.read("out"), sandbox.read("plain")) << codePage;
    }
    EXPECT_FALSE(copyFileConverted("/no/where", "UTF-16", out.c_str(), "UTF-8"));
    EXPECT_EQ(sandbox.read("out"), "") << "an empty copy stays behind when only the input fails";
    EXPECT_FALSE(copyFileConverted(in.c_str(), "UTF-16", "/no/where", "UTF-8"));
}

TEST(Paths, tellWhatIsAbsentFromWhatCannotBeOpened) {
    const Sandbox sandbox;
    const std::string file = sandbox.path("licenses/LA_en");
    EXPECT_EQ(presenceOf(file), Presence::readable);
    for (const std::string& path : {file + "x", file + "/x", file + std::string(300, 'x')}) {
        EXPECT_EQ(presenceOf(path), Presence::absent) << path;
    }
    rlimit descriptors{};
    getrlimit(RLIMIT_NOFILE, &descriptors);
    const rlimit none{0, descriptors.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    EXPECT_EQ(presenceOf(file), Presence::unknown);
    EXPECT_TRUE(fileExists(file)) << "and reading it will fail";
    setrlimit(RLIMIT_NOFILE, &descriptors);
}

}  // namespace zev::test
