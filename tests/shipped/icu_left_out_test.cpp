#include <gtest/gtest.h>
#include <unicode/ustdio.h>

// The other tests and the zev that the sessions run use the same functions, so a call of one would make them fail.
TEST(IcuLeftOut, stopsARunThatFormatsNumbers) {
    UFILE* const file = u_get_stdout();
    EXPECT_DEATH(u_fprintf(file, "%d", 1), "ICU called a function that is left out");
}
