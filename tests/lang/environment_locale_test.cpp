#include "lang/environment_locale.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/putil.h>

#include <array>
#include <sstream>

namespace zev::test {

void adopt(const char* all, const char* type, const char* lang) {
    setenv("LC_ALL", all, 1);
    setenv("LC_CTYPE", type, 1);
    setenv("LC_MESSAGES", "it_IT.UTF-8", 1);
    setenv("LANG", lang, 1);
    adoptEnvironmentLocale();
}

std::string written(const icu::UnicodeString& text) {
    std::ostringstream out;
    out << InCodePage{{text.getBuffer(), static_cast<std::size_t>(text.length())}};
    return out.str();
}

TEST(EnvironmentLocale, takesTheFirstVariableThatIsSetAndNotEmpty) {
    const std::array<const char*, 5> rows[]{
        {"", "", "", "en_US_POSIX", "US-ASCII"},
        {"C", "", "fr_FR.UTF-8", "en_US_POSIX", "US-ASCII"},
        {"", "POSIX.UTF-8", "", "en_US_POSIX", "UTF-8"},
        {"pt_BR.ISO-8859-1", "de_DE.UTF-8", "fr_FR.UTF-8", "pt_BR", "ISO-8859-1"},
        {"", "de_DE.UTF-8@euro", "fr_FR", "de_DE_EURO", "UTF-8"},
        {"", "", "ja_JP.eucJP", "ja_JP", "eucJP"},
        {"", "", "zh_TW", "zh_TW", "US-ASCII"},
        {"", "", "fr_FR.no-such-set", "fr_FR", "US-ASCII"},
        {"", "UTF-8", "fr_FR.ISO-8859-1", "fr_FR", "UTF-8"},
        {"", "UTF-8", "", "en_US_POSIX", "UTF-8"},
        {"", "utf8", "de_DE@euro.UTF-8", "de_DE_EURO", "utf8"},
        {"", "", "@euro", "__EURO", "US-ASCII"},
    };
    for (const auto& [all, type, lang, locale, set] : rows) {
        SCOPED_TRACE(testing::Message() << all << "|" << type << "|" << lang);
        adopt(all, type, lang);
        EXPECT_STREQ(icu::Locale().getName(), locale);
        EXPECT_STREQ(codePageName(), set);
    }
}

TEST(EnvironmentLocale, leavesIcuNoDataButItsOwn) {
    for (const char* variable : {"ICU_DATA", "ICU_TIMEZONE_FILES_DIR"}) setenv(variable, "/elsewhere", 1);
    adopt("", "", "ja_JP-u-tz-deber.UTF-8");
    UErrorCode status = U_ZERO_ERROR;
    EXPECT_STREQ(u_getDataDirectory(), "");
    EXPECT_STREQ(u_getTimeZoneFilesDirectory(&status), "");
}

TEST(EnvironmentLocale, writesTextInTheCodePageWithSubstitutions) {
    adopt("", "", "ja_JP");
    EXPECT_EQ(written(u"a日"), "a\x1A");
    adopt("", "", "fr_FR.ISO-8859-1");
    EXPECT_EQ(written(u"é€"), "\xE9\x1A");
    EXPECT_EQ(fromCodePage("\xE9"), icu::UnicodeString(u"é"));
    adopt("", "", "ja_JP.ISO-2022-JP");
    EXPECT_EQ(written(u"許"), "\x1B$B5v");
    EXPECT_EQ(written(u"x"), "x") << "every piece begins anew";
    adopt("", "", "ko_KR.ISO-2022-KR");
    EXPECT_EQ(written(u"x"), "\x1B$)Cx");
    EXPECT_EQ(written(u""), "");
    adopt("", "", "en_US.UTF-16BE");
    EXPECT_EQ(written(u"許x許"), "\x8A\x31") << "up to the first zero byte";
    adopt("", "", "en_US.UTF-8");
    for (const char16_t* half : {u"\xD83D\n", u"\xDE00\n"}) EXPECT_EQ(written(half), "\uFFFD\n") << "a hard cut";
    const icu::UnicodeString text(600, U'é', 600);
    EXPECT_EQ(fromCodePage(written(u"a" + text).c_str()), u"a" + text) << "longer than a chunk";
}

}  // namespace zev::test
