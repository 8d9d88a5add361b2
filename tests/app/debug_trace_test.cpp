#include <gmock/gmock.h>

#include "support/process.h"

namespace zev::test {
namespace {

const auto isWholeTrace = testing::StartsWith("DEBUG: ZEV version v1.1-0 started\nDEBUG: Tool invoked as: zev ");

TEST(DebugTrace, goesToTheLastFileNamedOrElseToStandardError) {
    const Sandbox sandbox;
    const std::string first = sandbox.path("first");
    const std::string last = sandbox.path("last");
    struct Row {
        const char* name;
        const char* variable;  // null: not set
        Arguments options;
        bool toLast;
    };
    const Row rows[]{
        {"empty variable", "", {}, false},
        {"file in the environment", last.c_str(), {}, true},
        {"no such directory", "/no/such/trace", {}, false},
        {"variable, then option", first.c_str(), {"-debug", last}, true},
        {"two options", nullptr, {"-debug", first, "-debugBreakText", last}, true},
        {"a file name looks like no option", last.c_str(), {"-debug", "-debug"}, true},
        {"closed again", nullptr, {"-debug", last, "-debug", ""}, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        sandbox.write("first", "old");
        sandbox.write("last", "old");
        Arguments options{"-t", "5"};
        options.insert(options.end(), row.options.begin(), row.options.end());
        const Environment environment = row.variable ? Environment{{"ZEV_DEBUG", row.variable}} : Environment{};
        const Finished finished = run(sandbox.arguments(options), environment);
        EXPECT_THAT(row.toLast ? sandbox.read("last") : finished.err, isWholeTrace);
        EXPECT_THAT(row.toLast ? finished.err : "", "");
        EXPECT_THAT(sandbox.read("first"), testing::AnyOf("", "old"));
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

}  // namespace
}  // namespace zev::test
