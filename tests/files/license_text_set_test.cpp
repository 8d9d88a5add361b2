#include "files/license_text_set.h"

#include <gmock/gmock.h>

#include "app/run_options.h"
#include "lang/locale_choice.h"
#include "support/sandbox.h"

namespace zev::test {

TEST(LicenseTextSet, joinsAgreementAndInformationAndCanDoWithoutTheLatter) {
    const Sandbox sandbox;
    setenv("LC_ALL", "C", 1);
    const RunContext context = createRunContext(sandbox.path("licenses/"), "", defaultLanguageSet);
    runOptions.debugEnabled = true;
    testing::internal::CaptureStderr();
    icu::UnicodeString text;
    EXPECT_TRUE(readLicenseText(context, text));
    EXPECT_EQ(text, u"en agreement\nen information\n");
    sandbox.remove("licenses/LI_en");
    sandbox.write("licenses/LA_en", utf16({u"cut\0here", 8}));
    EXPECT_TRUE(readLicenseText(context, text));
    EXPECT_EQ(text, u"cut");
    sandbox.remove("licenses/LA_en");
    EXPECT_FALSE(readLicenseText(context, text));
    EXPECT_FALSE(readNonVurText(context, text));
    EXPECT_EQ(text, u"cut") << "a failure leaves it alone";
    const std::string path = sandbox.path("licenses/") + "/";
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "DEBUG: Number of characters in " + path + "LA_en is 13\nDEBUG: Number of characters in " + path +
                  "LI_en is 15\nDEBUG: Total license text size is 28\nDEBUG: Number of characters in " + path +
                  "LA_en is 8\nDEBUG: Total license text size is 8\nDEBUG: The LA file does not exist at " + path +
                  "LA_en\nDEBUG: Unable to open file " + path + "non_vur_license\n");
}

}  // namespace zev::test
