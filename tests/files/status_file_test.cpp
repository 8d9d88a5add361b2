#include "files/status_file.h"

#include <gtest/gtest.h>

#include "app/run_options.h"
#include "lang/locale_choice.h"
#include "support/sandbox.h"

namespace zev::test {

TEST(StatusFile, isJudgedByItsFirstLineThatSaysSomething) {
    using namespace std::string_literals;
    const std::pair<std::string, bool> rows[]{
        {"Status=9\n", true},
        {"Status=9", true},
        {"#\n\n# Sat\nStatus=9\nStatus=3\n", true},
        {"Status=9\0rest\n"s, true},  // a line is a C string
        {"#" + std::string(78, '-') + "\nStatus=9\n", true},
        {"#" + std::string(79, '-') + "\nStatus=9\n", false},
        {"Status=9\r\n", false},
        {" Status=9\n", false},
        {"Status=9 \n", false},
        {"status=9\n", false},
        {"Status=09\n", false},
        {"Status=3\nStatus=9\n", false},
        {"# only\n# comments", false},
        {"", false},
    };
    const Sandbox sandbox;
    const RunContext context = createRunContext("", "", defaultLanguageSet);
    EXPECT_FALSE(checkStatusFile(context, sandbox.path("status.dat")));
    EXPECT_FALSE(checkStatusFile(context, sandbox.path()));
    for (const auto& [bytes, valid] : rows) {
        sandbox.write("status.dat", bytes);
        EXPECT_EQ(checkStatusFile(context, sandbox.path("status.dat")), valid) << bytes;
    }
}

TEST(StatusFile, isTwoLinesWithTheLocalTime) {
    setenv("TZ", "ABC-5", 1);
    const Sandbox sandbox;
    const RunContext context = createRunContext("", "", defaultLanguageSet);
    EXPECT_TRUE(writeStatusFile(context, sandbox.path("status.dat")));
    const std::string bytes = sandbox.read("status.dat");
    EXPECT_EQ(bytes.size(), 39U);
    tm date{};
    EXPECT_STREQ(strptime(bytes.c_str(), "#%a %b %d %H:%M:%S ABC %Y\n", &date), "Status=9\n") << bytes;
}

}  // namespace zev::test
