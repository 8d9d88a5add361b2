#include <gmock/gmock.h>

#include "support/process.h"

namespace zev::test {

const auto isWholeTrace = testing::StartsWith("DEBUG: ZEV version v1.1-0 started\nDEBUG: Tool invoked as: zev ");

TEST(DebugTrace, goesToTheLastFileNamedOrElseToStandardError) {
    const Sandbox sandbox;
    const std::string first = sandbox.path("first");
    const std::string last = sandbox.path("last");
    const std::tuple<Environment, Arguments, bool, const char*> rows[]{
        {{{"ZEV_DEBUG", ""}}, {}, false, "old"},
        {{{"ZEV_DEBUG", "/no/such/trace"}}, {}, false, "old"},
        {{{"ZEV_DEBUG", last}}, {"-debug", "-debug"}, true, "old"},  // an option is no file name
        {{{"ZEV_DEBUG", first}}, {"-debug", last}, true, ""},
        {{}, {"-debug", first, "-debugBreakText", last}, true, ""},
        {{}, {"-debug", last, "-debug", ""}, false, "old"},
    };
    for (const auto& [environment, options, toLast, inFirst] : rows) {
        SCOPED_TRACE(testing::PrintToString(options));
        sandbox.write("first", "old");
        sandbox.write("last", "old");
        Arguments all = sandbox.arguments({"-t", "5"});
        all.insert(all.end(), options.begin(), options.end());
        const Finished finished = run(all, environment);
        EXPECT_THAT(toLast ? sandbox.read("last") : finished.err, isWholeTrace);
        EXPECT_EQ(finished.err.empty(), toLast);
        EXPECT_EQ(sandbox.read("first"), inFirst);
    }
}

TEST(DebugTrace, hasASwitchOfItsOwnForLineBreaking) {
    const Sandbox sandbox;
    sandbox.write("licenses/LA_en", utf16(u"a\nb"));
    sandbox.write("licenses/LI_en", "");
    const Finished finished = run(sandbox.arguments({"-debugBreakText"}), {}, "1\n");
    const std::string rule = "DEBUG: -------------------\n";
    EXPECT_THAT(finished.err,
                testing::StartsWith(rule + "DEBUG: start   : 0\nDEBUG: end     : 0\nDEBUG: nextPos : 2\n" +  //
                                    rule + "DEBUG: start   : 0\nDEBUG: end     : 2\nDEBUG: nextPos : 3\n" +
                                    "DEBUG: Got string 1: 'a'\n" + rule +
                                    "DEBUG: start   : 2\nDEBUG: end     : 2\nDEBUG: nextPos : 3\n" + rule +
                                    "DEBUG: start   : 2\nDEBUG: end     : 3\nDEBUG: nextPos : -1\n" +
                                    "DEBUG: Got string 3: 'b'\n"));
    EXPECT_THAT(finished.err, testing::Not(testing::HasSubstr("started")));
}

}  // namespace zev::test
